// The dialogs that change the food table. Each dialog alone on the sample
// foods: what it offers, what it says and the food it inserts. The whole
// program where the Database menu and the chooser join in: the dialogs
// opened from the menu, the chooser rebuilt after a change, the capacity
// refusal and a food deleted.
#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

#include "Fixtures.h"
#include "WindowTestSupport.h"
#include "dialogs/views/AddFoodDialog.h"
#include "dialogs/views/CopyFavoritesDialog.h"
#include "dialogs/views/SaveDishDialog.h"
#include "fooddb/FoodGroups.h"
#include "foodlist/TierMap.h"

using namespace pw;
using namespace pw::test;

namespace {

const QStringList kButter = {"Dairy and Eggs", "Butter", "Salted", "1 tbsp"};
const QStringList kCheddar = {"Dairy and Eggs", "Cheese", "Cheddar", "1 oz"};

int IndexOf(const FoodTable& t, const std::string& subgroup, const std::string& description, const std::string& measure)
{
    for (int i = 0; i < t.Count(); ++i)
        if (t.Subgroup(i) == subgroup && t.Description(i) == description && t.Measure(i) == measure)
            return i;
    return -1;
}

// The messages shown since the last call as title|icon|buttons|text (icons:
// 1 information, 2 question, 3 exclamation, 4 critical; buttons: 0 OK, 1
// Yes and No).
QStringList Said(RecordingPrompts& prompts)
{
    QStringList said;
    for (const RecordedMessage& m : prompts.messages)
        said << Shown(m);
    prompts.messages.clear();
    return said;
}

QLineEdit* Box(const QWidget& d, const QString& name) { return Find<QLineEdit>(d, name); }
QComboBox* Combo(const QWidget& d, const char* name) { return Find<QComboBox>(d, name); }
QPushButton* Button(const QWidget& d, const char* name) { return Find<QPushButton>(d, name); }

// The custom food's group picked, then its subgroup, description, measure
// and seven values entered.
void EnterCustomFood(const QWidget& d, int group, const QStringList& texts,
                     const QStringList& values = QStringList(kCustomNutrients, QStringLiteral("1")))
{
    Combo(d, "comPrimary")->setCurrentIndex(group);
    emit Combo(d, "comPrimary")->activated(group);
    Combo(d, "comSecondary")->lineEdit()->insert(texts[0]);
    Box(d, "txtDescription")->insert(texts[1]);
    Box(d, "txtMeasure")->insert(texts[2]);
    for (int i = 0; i < kCustomNutrients; ++i)
        Box(d, QStringLiteral("txtNutrVal%1").arg(i))->insert(values[i]);
}

// One dialog alone on the sample foods and the fakes, the chooser's group
// column built as the program builds it; no dialog reads the table before
// it is opened.
template <class Dialog>
struct Alone {
    Alone()
    {
        table = SampleTable();
        TableChanged();
    }
    void TableChanged() { RebuildGroupColumn(table, session.tierMap); }

    FoodSession session;
    FoodTable& table = session.foodTable;
    FakeSeams fakes;
    bool ended = false;
    ErrorGuard guard{ended, fakes.prompts};
    Dialog d{session, fakes.seams, &guard};
    QSignalSpy changed{&d, &FoodTableDialog::foodTableChanged};
};

// The running program on a food table.
struct Program {
    explicit Program(const FoodTable& table = SampleTable()) { h.StartOn(DataFileBytes(table)); }
    FoodChooserPage& page() const { return *Find<FoodChooserPage>(*h.main, "pageFoodList"); }
    FoodTable& table() { return h.session.foodTable; }
    QAction* Menu(const char* name) const { return Find<QAction>(*h.main, name); }
    // The dialog the menu item opens, checked open over the main window and
    // showing its texts whole.
    template <class Dialog>
    Dialog& Open(const char* item, const char* dialog)
    {
        Menu(item)->trigger();
        auto* d = Find<Dialog>(*h.main, dialog);
        [d] {
            QVERIFY(d->isVisible() && d->windowModality() == Qt::WindowModal);
            QCOMPARE(ClippedTexts(*d), QStringList());
        }();
        return *d;
    }
    void AddToList(const QStringList& food) const
    {
        ChooseFood(page(), food);
        Button(page(), "btnAcceptItem")->click();
    }
    // The table changed: the chooser is reset and maps the table's groups
    // anew.
    void VerifyChooserRebuilt(int count)
    {
        QCOMPARE(table().Count(), count);
        QComboBox* groups = Combo(page(), "comTier0");
        QVERIFY(!groups->isEnabled() && groups->currentIndex() == -1);
        TierMap fresh;
        QCOMPARE(groups->count(), int(RebuildGroupColumn(table(), fresh).size()));
        for (int row = 0; row <= groups->count(); ++row)
            QCOMPARE(h.session.tierMap.Get(row, 0), fresh.Get(row, 0));
    }

    ProgramHarness h;
};

}  // namespace

class FoodTableDialogsTest : public QObject {
    Q_OBJECT

private slots:
    void ACustomFoodIsAddedOnceFromUnitsAndPercentsAsTyped()
    {
        Alone<AddFoodDialog> a;
        AddFoodDialog& d = a.d;
        // Which take input: the subgroup, the description, a value and Add.
        const auto offered = [&d] {
            QString on;
            for (const char* name : {"comSecondary", "txtDescription", "txtNutrVal0", "btnAdd"})
                on += Find<QWidget>(d, name)->isEnabled() ? '1' : '0';
            return on;
        };
        const auto unit = [&d](int row) { return Find<QLabel>(d, "labMeasureCaption" + QString::number(row))->text(); };
        QCOMPARE(Combo(d, "comPrimary")->count(), kGroupCount);
        QCOMPARE(Combo(d, "comPrimary")->itemText(11), QStringLiteral("Nuts, Seeds, Lugumes, Beans"));
        // Pasted control characters go; accents stay; what Latin-1 cannot
        // hold is refused, named, and the box keeps what it had.
        const QString typed =
            QStringLiteral("\"Cereals / m\u00fcsli, cr\u00e8me br\u00fbl\u00e9e, \u00ff /  1 bowl\"\r\n");
        QString food = typed;
        food[11] = 'M';  // the description capitalised
        const QStringList said = {
            "Platewell|3|0|The character \"\u20ac\" (U+20AC) cannot be stored: Platewell's files hold Western "
            "European (Latin-1) letters only.\r\n\r\nPlease type the text without it.",
            "Error|3|0|Enter only numbers in this field.", "Add to database|2|1|Add " + typed + "to the database?"};
        const QStringList outcome = {"Added to database|1|0|" + food + "added to the database.",
                                     "Not added to database|3|0|" + food + "already exists in the database."};
        for (int round = 0; round < 2; ++round) {
            d.open();
            // Every opening starts empty, nothing but the group to choose.
            QVERIFY(Combo(d, "comPrimary")->currentText().isEmpty() && Box(d, "txtNutrVal0")->text().isEmpty());
            QVERIFY(d.FieldsFilled() == 0 && offered() == "0000" && unit(3) == "mg");
            Combo(d, "comPrimary")->setCurrentIndex(3);
            emit Combo(d, "comPrimary")->activated(3);
            QCOMPARE(ComboItems(Combo(d, "comSecondary")).join('/'),
                     round ? "Butter/Cereals/Cheese/Milk" : "Butter/Cheese/Milk");
            QCOMPARE(offered(), QStringLiteral("1000"));
            EnterCustomFood(d, 3, {"Cer\teals\r\n", typed.section(" / ", 1, 1), " 1 bowl"},
                            {"10", "2.5", "2.5", "30", "0", "10", "10"});
            Box(d, "txtMeasure")->insert(QStringLiteral(" \u20ac"));
            QCoreApplication::processEvents();  // the refusal is told once the box is back as it was
            QCOMPARE(Combo(d, "comSecondary")->currentText() + '/' + Box(d, "txtMeasure")->text(), "Cereals/ 1 bowl");
            for (int row : {0, 6})  // protein and sodium as %DV
                Find<QRadioButton>(d, QStringLiteral("optDV%1").arg(row))->click();
            QVERIFY(unit(6) == "%DV*" && unit(5) == "mg" && d.FieldsFilled() == kAllFieldsFilled);
            QCOMPARE(offered(), QStringLiteral("1111"));
            // Not a number: refused and emptied, and Add waits for it again.
            QTest::keyClick(Box(d, "txtNutrVal4"), Qt::Key_X);
            QVERIFY(Box(d, "txtNutrVal4")->text().isEmpty() && offered() == "1110");
            QTest::keyClicks(Box(d, "txtNutrVal4"), QStringLiteral("1"));
            a.fakes.prompts.answers = {MsgResult::Yes};
            Button(d, "btnAdd")->click();
            QCOMPARE(Said(a.fakes.prompts), said + QStringList(outcome[round]));
            QCOMPARE(Box(d, "txtCalories")->text(), QStringLiteral("46"));  // 4 x 5 + 4 x 2 + 9 x 2
            QVERIFY(a.changed.count() == 1 && a.table.Count() == 13 && d.isVisible() == (round == 1));
            a.TableChanged();
        }
        // Kept in Latin-1, in its group's order.
        QCOMPARE(IndexOf(a.table, "Cereals", "M\xfcsli, cr\xe8me br\xfbl\xe9" "e, \xff", "1 bowl"), 5);
        QCOMPARE(a.table.Values(5), (NutrientValues{46, 5, 2, 2, 30, 1, 10, 238, 0}));

        // Declined, nothing is added; Help shows its topic; Cancel leaves.
        Button(d, "btnAdd")->click();
        QCOMPARE(Said(a.fakes.prompts), QStringList({"Add to database|2|1|Add " + food + "to the database?",
                                                     "Add to database|1|0|Operation cancelled."}));
        Button(d, "btnHelp")->click();
        QCOMPARE(a.fakes.help.calls.back().context, std::optional<int>(7));
        Button(d, "btnCancel")->click();
        QVERIFY(!d.isVisible() && a.table.Count() == 13);
    }

    void TheListIsSavedAsADishOnce()
    {
        Alone<SaveDishDialog> a;
        for (int food : {4, 5}) {  // a tablespoon of butter and an ounce of cheddar
            FoodListEntry entry;
            entry.foodIndex = std::int16_t(food);
            entry.amounts = a.table.Values(food);
            a.session.foodList.Append(entry);
        }
        SaveDishDialog& d = a.d;
        QSignalSpy saved(&d, &SaveDishDialog::dishSaved);
        QComboBox* subgroup = Combo(d, "comSubgroup");
        const QString dish = QStringLiteral("Favorites / Dishes / Lunch / 1 plate\r\n");
        const QStringList outcome = {
            "Added to database|2|1|" + dish + "successfully added to database.\r\n\r\nDo you want to clear the grid?",
            "Unable to add to database|3|0|" + dish + "already exists in the database."};
        for (int round = 0; round < 2; ++round) {
            d.open();
            QVERIFY(Box(d, "txtDescription")->text().isEmpty() && subgroup->currentText().isEmpty());
            QCOMPARE(ComboItems(subgroup).join('/'), round ? "Dishes/My Favorites" : "My Favorites");
            subgroup->lineEdit()->insert(QStringLiteral("Dishes"));
            Box(d, "txtDescription")->insert(round ? QStringLiteral("Lunch") : QStringLiteral("lunch"));
            QVERIFY(!Button(d, "btnSaveList")->isEnabled());
            Box(d, "txtMeasure")->insert(QStringLiteral("1 plate"));
            Button(d, "btnSaveList")->click();  // and keep the list; the second time refused
            QCOMPARE(Said(a.fakes.prompts), QStringList(outcome[round]));
            QVERIFY(d.isVisible() == (round == 1) && saved.count() == 1 && a.table.Count() == 13);
            a.TableChanged();
        }
        QCOMPARE(saved[0][0].toBool(), false);
        QCOMPARE(a.table.Values(IndexOf(a.table, "Dishes", "Lunch", "1 plate")), a.session.foodList.Totals());
    }

    void TheChosenFoodIsCopiedToFavoritesOnce()
    {
        Alone<CopyFavoritesDialog> a;
        CopyFavoritesDialog& d = a.d;
        QComboBox* subgroup = Combo(d, "comSubgroup");
        a.session.chooser.currentFood = 5;
        d.SetChosenFood({"Cheese", "Cheddar", "1 oz"});
        const QString copy = QStringLiteral("Favorites / Cheese / sharp cheddar / 1 oz\r\n");
        const QStringList outcome = {
            "Copied to Favorites|1|0|" + copy + "successfully copied to Favorites.",
            "Unable to copy to Favorites|3|0|" + copy + "already exists in the Favorites section."};
        for (int round = 0; round < 2; ++round) {
            d.open();
            // The chosen food's subgroup offered when Favorites has it.
            QVERIFY(subgroup->currentText() == (round ? "Cheese" : "") && Button(d, "btnCopy")->isEnabled() == round);
            QCOMPARE(Box(d, "txtDescription")->text() + '/' + Find<QLabel>(d, "labMeasure")->text(),
                     QStringLiteral("Cheddar/1 oz"));
            subgroup->setEditText(QStringLiteral("Cheese"));
            Box(d, "txtDescription")->setText(QStringLiteral("sharp cheddar"));
            Button(d, "btnCopy")->click();  // the second time refused
            QCOMPARE(Said(a.fakes.prompts), QStringList(outcome[round]));
            QVERIFY(d.isVisible() == (round == 1) && a.changed.count() == 1 && a.table.Count() == 13);
            a.TableChanged();
        }
        const int copied = IndexOf(a.table, "Cheese", "sharp cheddar", "1 oz");
        QCOMPARE(a.table.Group(copied), std::string(kFavoritesGroup));
        QCOMPARE(a.table.Values(copied), a.table.Values(5));
    }

    void TheDatabaseMenuOpensTheDialogsAndTheChooserFollows()
    {
        Program p;
        auto& add = p.Open<AddFoodDialog>("mnuAddCustomItem", "frmAdd");
        EnterCustomFood(add, 2, {"Sauces", "Mustard", "1 tsp"});
        p.h.fakes.prompts.answers = {MsgResult::Yes};
        Button(add, "btnAdd")->click();
        p.VerifyChooserRebuilt(13);  // with a new group
        QCOMPARE(&p.Open<AddFoodDialog>("mnuAddCustomItem", "frmAdd"), &add);
        QVERIFY(p.h.main->findChildren<AddFoodDialog*>().size() == 1);
        add.reject();

        // The dish: the list kept, and not offered as a dish again as it is.
        p.AddToList(kButter);
        p.AddToList(kCheddar);
        auto& save = p.Open<SaveDishDialog>("mnuSaveAsDish", "frmSaveList");
        for (QLineEdit* box : {Combo(save, "comSubgroup")->lineEdit(), Box(save, "txtDescription"),
                               Box(save, "txtMeasure")})
            box->insert(QStringLiteral("Dish"));
        Button(save, "btnSaveList")->click();
        QVERIFY(!save.isVisible() && !p.Menu("mnuSaveAsDish")->isEnabled() && p.h.session.foodList.Count() == 2);
        p.VerifyChooserRebuilt(14);

        // The copy starts from the food the chooser shows.
        ChooseFood(p.page(), kCheddar);
        auto& copy = p.Open<CopyFavoritesDialog>("mnuCopyToFavorites", "frmCopy");
        QCOMPARE(Box(copy, "txtDescription")->text() + '/' + Find<QLabel>(copy, "labMeasure")->text(),
                 QStringLiteral("Cheddar/1 oz"));
        Combo(copy, "comSubgroup")->lineEdit()->insert(QStringLiteral("Cheeses"));
        Button(copy, "btnCopy")->click();
        p.VerifyChooserRebuilt(15);
        QCOMPARE(p.table().Values(IndexOf(p.table(), "Cheeses", "Cheddar", "1 oz")), p.table().Values(5));
    }

    void AFullTableTakesNoMoreFoods()
    {
        FoodTable table = SampleTable();
        for (int n = 0; table.Count() < kFoodCapacity; ++n)
            table.Append(Food("Vegetables", "Zucchini " + std::to_string(10 + n / 100),
                              "Cut " + std::to_string(100 + n % 100), "1 cup", 1, 4, 0));
        Program p(table);
        const QString full = QStringLiteral("No room in database|4|0|") + texts::kDatabaseMaxedOut;
        ChooseFood(p.page(), kCheddar);
        p.Menu("mnuAddCustomItem")->trigger();
        p.Menu("mnuCopyToFavorites")->trigger();
        QCOMPARE(Said(p.h.fakes.prompts), QStringList({full, full}));
        QVERIFY(!p.h.main->findChild<AddFoodDialog*>() && !p.h.main->findChild<CopyFavoritesDialog*>());

        // Saving a dish is offered without the test, and refused on saving.
        p.AddToList(kButter);
        p.AddToList(kCheddar);
        auto& d = p.Open<SaveDishDialog>("mnuSaveAsDish", "frmSaveList");
        for (QLineEdit* box : {Combo(d, "comSubgroup")->lineEdit(), Box(d, "txtDescription"), Box(d, "txtMeasure")})
            box->insert(QStringLiteral("Dish"));
        Button(d, "btnSaveList")->click();
        QCOMPARE(Said(p.h.fakes.prompts), QStringList(full));
        QVERIFY(!d.isVisible() && p.table().Count() == kFoodCapacity && p.h.session.foodList.Count() == 2);
    }

    void AFoodIsDeletedWithItsMeasuresUnlessTheListUsesIt()
    {
        Program p;
        QAction* remove = p.Menu("mnuDeleteFromDatabase");
        p.AddToList({"Dairy and Eggs", "Butter", "Salted", "1 pat"});
        ChooseFood(p.page(), kButter);  // the other measure of the listed butter
        remove->trigger();
        QCOMPARE(Said(p.h.fakes.prompts),
                 QStringList(QStringLiteral("Delete from Database|3|0|") + texts::kDeleteFoodInUse));
        QVERIFY(!remove->isEnabled() && p.table().Count() == 12);

        ChooseFood(p.page(), {"Fruits", "Apples", "Raw, with skin", "1 medium"});
        const QString question = QStringLiteral(
            "Delete from Database|2|1|This will permanently delete the item:\r\n"
            "\"Fruits / Apples / Raw, with skin\"\r\nfrom the database of foods.\r\n\r\n"
            "Do you want to delete this item?");
        remove->trigger();  // and answer No
        p.h.fakes.prompts.answers = {MsgResult::Yes};
        remove->trigger();
        QCOMPARE(Said(p.h.fakes.prompts), QStringList({question, "Delete from Database|1|0|Deletion has been canceled.",
                                                       question, "Delete from Database|1|0|Item has been deleted."}));
        p.VerifyChooserRebuilt(10);
        QVERIFY(p.table().Group(7) == "Favorites" && p.table().Group(8) == "Vegetables");

        // Deleting a food before the listed one moves it down: its row still
        // names it, and so it still cannot be deleted.
        ChooseFood(p.page(), {"Beverages", "Beer", "Regular", "12 fl oz"});
        p.h.fakes.prompts.answers = {MsgResult::Yes};
        remove->trigger();
        const int listed = p.h.session.foodList.Entry(1).foodIndex;
        QCOMPARE(p.table().Description(listed) + "/" + p.table().Measure(listed), std::string("Salted/1 pat"));
        // So does a row that Undo puts back after a food before it went.
        p.Menu("mnuClearList")->trigger();
        ChooseFood(p.page(), {"Bakery and Grains", "Bread", "White", "1 slice"});
        p.h.fakes.prompts.answers = {MsgResult::Yes};
        remove->trigger();
        p.Menu("mnuUndo")->trigger();
        const int back = p.h.session.foodList.Entry(1).foodIndex;
        QCOMPARE(p.table().Description(back) + "/" + p.table().Measure(back), std::string("Salted/1 pat"));
    }
};

QTEST_MAIN(FoodTableDialogsTest)
#include "FoodTableDialogsTest.moc"

// The commands that change the food table, on the whole program: the custom
// food, the list saved as a dish, a food copied to Favorites and a food
// deleted, with their refusals and the table's capacity.
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "Fixtures.h"
#include "WindowTestSupport.h"
#include "dialogs/views/AddFoodDialog.h"
#include "dialogs/views/CopyFavoritesDialog.h"
#include "dialogs/views/DatabaseCommands.h"
#include "dialogs/views/SaveDishDialog.h"
#include "fooddb/FoodGroups.h"
#include "foodlist/views/FoodListPage.h"
#include "foodlist/TierMap.h"

using namespace pw;
using namespace pw::test;

namespace {

const QStringList kButter = {"Dairy and Eggs", "Butter", "Salted", "1 tbsp"};
const QStringList kCheddar = {"Dairy and Eggs", "Cheese", "Cheddar", "1 oz"};

struct Program {
    explicit Program(const FoodTable& table = SampleTable()) { h.StartOn(DataFileBytes(table)); }
    FoodListPage& page() const { return *h.main->foodListPage; }
    FoodTable& table() { return h.session.foodTable; }
    void Trigger(const char* action) const { h.main->findChild<QAction*>(action)->trigger(); }
    void Choose(const QStringList& food) const { ChooseFood(page(), food); }
    void AddToList(const QStringList& food) const
    {
        Choose(food);
        page().btnAcceptItem->click();
    }
    int Find(const std::string& subgroup, const std::string& description, const std::string& measure)
    {
        for (int i = 0; i < table().Count(); ++i)
            if (table().Subgroup(i) == subgroup && table().Description(i) == description &&
                table().Measure(i) == measure)
                return i;
        return -1;
    }
    // The last message, checked and forgotten.
    void Said(const QString& text, const char* title, MsgIcon icon)
    {
        auto& messages = h.fakes.prompts.messages;
        QVERIFY(!messages.empty());
        QCOMPARE(messages.back().text, text);
        QCOMPARE(messages.back().title, QString::fromLatin1(title));
        QVERIFY(messages.back().icon == icon);
        messages.clear();
    }
    void VerifyTableChanged(int count)
    {
        QCOMPARE(table().Count(), count);
        QVERIFY(table().DatabaseDirty);
        QVERIFY(!page().comTier0->isEnabled() && page().comTier0->currentIndex() == -1);  // the chooser reset
        TierMap groups;
        QCOMPARE(page().comTier0->count(), int(RebuildGroupColumn(table(), groups).size()));
    }

    ProgramHarness h;
};

}  // namespace

class FoodTableDialogsTest : public QObject {
    Q_OBJECT

private slots:
    void ACustomFoodIsAddedOnceFromUnitsAndPercents()
    {
        Program p;
        p.Trigger("mnuAddCustomItem");
        AddFoodDialog& d = *p.h.main->database->frmAdd;
        QVERIFY(d.isVisible() && d.windowModality() == Qt::WindowModal);
        QCOMPARE(d.comPrimary->count(), kGroupCount);
        QCOMPARE(d.comPrimary->itemText(11), QStringLiteral("Nuts, Seeds, Lugumes, Beans"));
        QCOMPARE(d.comPrimary->itemText(3), QStringLiteral("Dairy and Eggs"));

        for (int round = 0; round < 2; ++round) {
            // Every opening starts empty, nothing but the group to choose.
            QVERIFY(d.comPrimary->currentText().isEmpty() && !d.comSecondary->isEnabled() && d.FieldsFilled() == 0);
            QVERIFY(!d.txtNutrVal[0]->isEnabled() && d.txtNutrVal[0]->text().isEmpty() && !d.btnAdd->isEnabled());
            QCOMPARE(d.labMeasureCaption[3]->text(), QStringLiteral("mg"));
            d.comPrimary->setCurrentIndex(3);
            emit d.comPrimary->activated(3);
            QCOMPARE(d.comSecondary->itemText(1), QStringLiteral("Cheese"));
            QVERIFY(d.comSecondary->count() == 3 && !d.txtDescription->isEnabled());
            QTest::keyClicks(d.comSecondary->lineEdit(), QStringLiteral("Cheese"));
            QTest::keyClicks(d.txtDescription, QStringLiteral("brie"));
            QTest::keyClicks(d.txtMeasure, QStringLiteral(" 1 oz"));
            const char* values[] = {"10", "2.5", "2.5", "30", "0", "10", "10"};  // protein and sodium as %DV
            for (int i = 0; i < kCustomNutrients; ++i)
                QTest::keyClicks(d.txtNutrVal[i], QString::fromLatin1(values[i]));
            for (int i : {0, 6})
                d.optDV[i]->click();
            QCOMPARE(d.labMeasureCaption[6]->text(), QStringLiteral("%DV*"));
            QCOMPARE(d.labMeasureCaption[5]->text(), QStringLiteral("mg"));
            QCOMPARE(d.FieldsFilled(), kAllFieldsFilled);
            QVERIFY(d.btnAdd->isEnabled());
            // Not a number: refused and emptied, and Add waits for it again.
            QTest::keyClick(d.txtNutrVal[4], Qt::Key_X);
            p.Said("Enter only numbers in this field.", "Error", MsgIcon::Exclamation);
            QVERIFY(d.txtNutrVal[4]->text().isEmpty() && !d.btnAdd->isEnabled());
            QTest::keyClicks(d.txtNutrVal[4], QStringLiteral("1"));

            p.h.fakes.prompts.answers = {MsgResult::Yes};
            d.btnAdd->click();
            QCOMPARE(p.h.fakes.prompts.messages.front().text,
                     QStringLiteral("Add \"Cheese / brie /  1 oz\"\r\nto the database?"));
            QCOMPARE(d.txtDescription->text(), QStringLiteral("Brie"));
            QCOMPARE(d.txtCalories->text(), QStringLiteral("46"));  // 4 x 5 + 4 x 2 + 9 x 2
            if (round == 0) {
                p.Said("\"Cheese / Brie /  1 oz\"\r\nadded to the database.", "Added to database",
                       MsgIcon::Information);
                QVERIFY(!d.isVisible());
                p.VerifyTableChanged(13);
                const int brie = p.Find("Cheese", "Brie", "1 oz");
                QCOMPARE(brie, 5);  // capitalised, before Cheddar
                QCOMPARE(p.table().Values(brie), (NutrientValues{46, 5, 2, 2, 30, 1, 10, 238, 0}));
                p.Trigger("mnuAddCustomItem");
                QCOMPARE(p.h.main->database->frmAdd, &d);
            } else {
                p.Said("\"Cheese / Brie /  1 oz\"\r\nalready exists in the database.", "Not added to database",
                       MsgIcon::Exclamation);
                QVERIFY(d.isVisible() && d.txtMeasure->text() == " 1 oz");
                QCOMPARE(p.table().Count(), 13);
            }
        }

        // Declined, nothing is added; Help shows its topic; Cancel leaves.
        d.btnAdd->click();
        p.Said("Operation cancelled.", "Add to database", MsgIcon::Information);
        d.btnHelp->click();
        QCOMPARE(p.h.fakes.help.calls.back().context, std::optional<int>(7));
        d.btnCancel->click();
        QVERIFY(!d.isVisible());
        QCOMPARE(p.table().Count(), 13);
    }

    void TypedFoodTextsAreKeptExactlyAsLatin1()
    {
        Program p;
        p.Trigger("mnuAddCustomItem");
        AddFoodDialog& d = *p.h.main->database->frmAdd;
        d.comPrimary->setCurrentIndex(3);
        emit d.comPrimary->activated(3);
        // Pasted control characters go; accents stay; what Latin-1 cannot
        // hold is refused, named, and the box keeps what it had.
        d.comSecondary->lineEdit()->insert(QStringLiteral("Cer\teals\r\n"));
        d.txtDescription->insert(QStringLiteral("M\u00fcsli, cr\u00e8me br\u00fbl\u00e9e, pi\u00f1a, \u00ff"));
        d.txtMeasure->insert(QStringLiteral("1 bowl"));
        d.txtMeasure->insert(QStringLiteral(" \u20ac"));
        QCOMPARE(d.comSecondary->currentText(), QStringLiteral("Cereals"));
        QCOMPARE(d.txtMeasure->text(), QStringLiteral("1 bowl"));
        QCoreApplication::processEvents();
        p.Said(QStringLiteral("The character \"\u20ac\" (U+20AC) cannot be stored: Platewell's files hold Western "
                              "European (Latin-1) letters only.\r\n\r\nPlease type the text without it."),
               "Platewell", MsgIcon::Exclamation);
        for (int i = 0; i < kCustomNutrients; ++i)
            QTest::keyClicks(d.txtNutrVal[i], QStringLiteral("1"));
        p.h.fakes.prompts.answers = {MsgResult::Yes};
        d.btnAdd->click();
        QVERIFY(!d.isVisible());
        const std::string description = "M\xfcsli, cr\xe8me br\xfbl\xe9" "e, pi\xf1" "a, \xff";
        QVERIFY(p.Find("Cereals", description, "1 bowl") >= 0);
    }

    void TheListIsSavedAsADishOnce()
    {
        Program p;
        p.AddToList(kButter);
        QVERIFY(!p.h.main->mnuSaveAsDish->isEnabled());
        p.AddToList(kCheddar);
        const NutrientValues totals = p.h.session.foodList.Totals();
        p.h.main->mnuSaveAsDish_Click();
        SaveDishDialog& d = *p.h.main->database->frmSaveList;
        QVERIFY(d.isVisible() && d.windowModality() == Qt::WindowModal);
        QCOMPARE(d.comSubgroup->count(), 1);
        QCOMPARE(d.comSubgroup->itemText(0), QStringLiteral("My Favorites"));
        QTest::keyClicks(d.comSubgroup->lineEdit(), QStringLiteral("Dishes"));
        QTest::keyClicks(d.txtDescription, QStringLiteral("lunch"));
        QVERIFY(!d.btnSaveList->isEnabled());
        QTest::keyClicks(d.txtMeasure, QStringLiteral("1 plate"));
        d.btnSaveList->click();  // and keep the grid

        p.Said("Favorites / Dishes / Lunch / 1 plate\r\nsuccessfully added to database.\r\n\r\n"
               "Do you want to clear the grid?",
               "Added to database", MsgIcon::Question);
        QVERIFY(!d.isVisible() && !p.h.main->mnuSaveAsDish->isEnabled());
        QCOMPARE(p.h.session.foodList.Count(), 2);
        p.VerifyTableChanged(13);
        QCOMPARE(p.table().Values(p.Find("Dishes", "Lunch", "1 plate")), totals);

        // Again under the same names: refused, the dialog stays open.
        p.AddToList(kCheddar);
        p.h.main->mnuSaveAsDish_Click();
        QVERIFY(d.txtDescription->text().isEmpty() && d.comSubgroup->currentText().isEmpty());
        QCOMPARE(d.comSubgroup->itemText(0), QStringLiteral("Dishes"));
        d.comSubgroup->setCurrentIndex(0);
        QTest::keyClicks(d.txtDescription, QStringLiteral("Lunch"));
        QTest::keyClicks(d.txtMeasure, QStringLiteral("1 plate"));
        d.btnSaveList->click();
        p.Said("Favorites / Dishes / Lunch / 1 plate\r\nalready exists in the database.", "Unable to add to database",
               MsgIcon::Exclamation);
        QVERIFY(d.isVisible());
        QCOMPARE(p.table().Count(), 13);
    }

    void TheChosenFoodIsCopiedToFavoritesOnce()
    {
        Program p;
        p.Choose(kCheddar);
        p.Trigger("mnuCopyToFavorites");
        CopyFavoritesDialog& d = *p.h.main->database->frmCopy;
        QVERIFY(d.isVisible() && d.windowModality() == Qt::WindowModal);
        QVERIFY(d.comSubgroup->currentText().isEmpty() && !d.btnCopy->isEnabled());
        QCOMPARE(d.txtDescription->text(), QStringLiteral("Cheddar"));
        QCOMPARE(d.labMeasure->text(), QStringLiteral("1 oz"));
        QTest::keyClicks(d.comSubgroup->lineEdit(), QStringLiteral("Cheese"));
        d.txtDescription->setText(QStringLiteral("sharp cheddar"));
        d.btnCopy->click();

        p.Said("Favorites / Cheese / sharp cheddar / 1 oz\r\nsuccessfully copied to Favorites.", "Copied to Favorites",
               MsgIcon::Information);
        QVERIFY(!d.isVisible());
        p.VerifyTableChanged(13);
        const int copy = p.Find("Cheese", "sharp cheddar", "1 oz");
        QCOMPARE(p.table().Group(copy), std::string(kFavoritesGroup));
        QCOMPARE(p.table().Values(copy), p.table().Values(p.Find("Cheese", "Cheddar", "1 oz")));

        // The copy itself, copied again under its own names.
        p.Choose({"Favorites", "Cheese", "sharp cheddar", "1 oz"});
        p.Trigger("mnuCopyToFavorites");
        QCOMPARE(d.comSubgroup->currentText(), QStringLiteral("Cheese"));
        QVERIFY(d.btnCopy->isEnabled());
        d.btnCopy->click();
        p.Said("Favorites / Cheese / sharp cheddar / 1 oz\r\nalready exists in the Favorites section.",
               "Unable to copy to Favorites", MsgIcon::Exclamation);
        QVERIFY(d.isVisible());
        QCOMPARE(p.table().Count(), 13);
    }

    void AFullTableTakesNoMoreFoods()
    {
        FoodTable table = SampleTable();
        for (int n = 0; table.Count() < kFoodCapacity; ++n)
            table.Append(Food("Vegetables", "Zucchini " + std::to_string(10 + n / 100),
                              "Cut " + std::to_string(100 + n % 100), "1 cup", 1, 4, 0));
        Program p(table);
        const QString full = QStringLiteral("The database has reached its maximum size (4,000 items).\r\n"
                                            "If you need to add additional items, you will need to\r\n"
                                            "delete unwanted items.\r\n");
        p.Trigger("mnuAddCustomItem");
        p.Said(full, "No room in database", MsgIcon::Critical);
        p.Choose(kCheddar);
        p.Trigger("mnuCopyToFavorites");
        p.Said(full, "No room in database", MsgIcon::Critical);
        QVERIFY(!p.h.main->database->frmAdd && !p.h.main->database->frmCopy);

        // Saving a dish is offered without the test, and refused on saving.
        p.AddToList(kButter);
        p.AddToList(kCheddar);
        p.h.main->mnuSaveAsDish_Click();
        SaveDishDialog& d = *p.h.main->database->frmSaveList;
        for (QLineEdit* box : {d.comSubgroup->lineEdit(), d.txtDescription, d.txtMeasure})
            QTest::keyClicks(box, QStringLiteral("Dish"));
        d.btnSaveList->click();
        p.Said(full, "No room in database", MsgIcon::Critical);
        QVERIFY(!d.isVisible());
        QCOMPARE(p.table().Count(), kFoodCapacity);
        QCOMPARE(p.h.session.foodList.Count(), 2);
    }

    void AFoodIsDeletedWithItsMeasuresUnlessTheListUsesIt()
    {
        Program p;
        p.AddToList({"Dairy and Eggs", "Butter", "Salted", "1 pat"});
        p.Choose(kButter);  // the other measure of the listed butter
        p.Trigger("mnuDeleteFromDatabase");
        p.Said("You are using this food in your list\r\nof foods, as displayed in the grid.\r\n\r\n"
               "You cannot delete this food from the\r\ndatabase until you remove it from the\r\ngrid.",
               "Delete from Database", MsgIcon::Exclamation);
        QVERIFY(!p.h.main->mnuDeleteFromDatabase->isEnabled());
        QCOMPARE(p.table().Count(), 12);

        const std::string beer = p.table().Record(2).description;
        p.Choose({"Fruits", "Apples", "Raw, with skin", "1 medium"});
        p.Trigger("mnuDeleteFromDatabase");  // and answer No
        p.Said("Deletion has been canceled.", "Delete from Database", MsgIcon::Information);
        QCOMPARE(p.table().Count(), 12);
        p.h.fakes.prompts.answers = {MsgResult::Yes};
        p.Trigger("mnuDeleteFromDatabase");
        QCOMPARE(p.h.fakes.prompts.messages.front().text,
                 QStringLiteral("This will permanently delete the item:\r\n\"Fruits / Apples / Raw, with skin\"\r\n"
                                "from the database of foods.\r\n\r\nDo you want to delete this item?"));
        p.Said("Item has been deleted.", "Delete from Database", MsgIcon::Information);
        p.VerifyTableChanged(10);
        QCOMPARE(p.page().comTier0->findText(QStringLiteral("Fruits")), -1);
        QCOMPARE(p.table().Group(8), std::string("Vegetables"));
        QCOMPARE(p.table().Record(2).description, beer);

        // Deleting a food before the listed one moves it down: its row still
        // names it, and so it still cannot be deleted.
        p.Choose({"Beverages", "Beer", "Regular", "12 fl oz"});
        p.h.fakes.prompts.answers = {MsgResult::Yes};
        p.Trigger("mnuDeleteFromDatabase");
        const int listed = p.h.session.foodList.Entry(1).foodIndex;
        QCOMPARE(p.table().Description(listed) + "/" + p.table().Measure(listed), std::string("Salted/1 pat"));
    }
};

QTEST_MAIN(FoodTableDialogsTest)
#include "FoodTableDialogsTest.moc"

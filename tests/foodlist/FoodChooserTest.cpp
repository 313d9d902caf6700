#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "FakeSeams.h"
#include "Fixtures.h"
#include "TempFolder.h"
#include "WindowTestSupport.h"
#include "foodlist/ChooserTexts.h"
#include "foodlist/views/FoodChooserPage.h"
#include "foodlist/FoodSession.h"

using namespace pw;
using namespace pw::test;

namespace {

const QString kInputError = QString::fromLatin1(texts::kQuantityInputError);
const QString kLimit = QString::fromLatin1(texts::kQuantityLimit);
const QString kCategoryEmpty = QString::fromLatin1(texts::kCategoryEmpty);

// The sample table with a food in Favorites beside its empty subgroup, a
// food of 5 g protein and a second, empty group.
FoodTable ChooserTable()
{
    const FoodTable sample = SampleTable();
    FoodTable table;
    for (int i = 0; i <= sample.LastIndex(); ++i) {
        table.Append(sample.Record(i));
        if (sample.Group(i) == "Favorites")
            table.Append(Food("Favorites", "Soups", "Stew", "1 bowl", 10, 20, 5));
    }
    table.Append(Food("Vegetables", "Peas", "Snow", "1 pod", 5, 0, 0));
    table.Append(Food("Zz Empty", "Nothing", "", "", 0, 0, 0));
    return table;
}

// A food-list page on the fakes, with the main window's hooks recorded.
struct Chooser {
    explicit Chooser(FoodTable table = ChooserTable())
    {
        session.programFolder = folder.Path();
        folder.Write("pw.hlp", "help");
        session.foodTable = std::move(table);
        session.dailyValues = {2000, 50, 300, 65, 300, 25, 800, 2400};
        page = std::make_unique<FoodChooserPage>(session, fakes.seams);
        QObject::connect(page.get(), &FoodChooserPage::copyToFavoritesAvailable, [this](bool on) { copyToFavorites = on; });
        QObject::connect(page.get(), &FoodChooserPage::deleteFromDatabaseAvailable,
                         [this](bool on) { deleteFromDatabase = on; });
        page->RebuildTierMap();
        page->FillQuantityList();
        page->NewItem();
    }

    QComboBox* Tier(int t) const { return Find<QComboBox>(*page, QStringLiteral("comTier%1").arg(t)); }
    QComboBox* Qty() const { return Find<QComboBox>(*page, QStringLiteral("comQuantity")); }
    QPushButton* Btn(const char* name) const { return Find<QPushButton>(*page, QString::fromLatin1(name)); }
    // A label by name, or the i-th of a row of labels ("labNutrVal", 3).
    QLabel* Lab(const char* name, int i = -1) const
    {
        const QString n = QString::fromLatin1(name);
        return Find<QLabel>(*page, i < 0 ? n : n + QString::number(i));
    }
    // A pick from a tier's list, as the user makes it.
    void Pick(int tier, const QString& text) const
    {
        QComboBox* combo = Tier(tier);
        const int i = combo->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
        if (i < 0)
            qFatal("%s not listed", qPrintable(text));
        combo->setCurrentIndex(i);
        emit combo->activated(i);
    }
    void Choose(const QStringList& texts) const
    {
        for (int t = 0; t < texts.size(); ++t)
            Pick(t, texts[t]);
    }
    // A quantity in the box followed by a key release, as after typing.
    void Enter(const QString& text) const
    {
        Qty()->setEditText(text);
        QTest::keyRelease(Qty(), Qt::Key_End);
    }
    bool On(QWidget* w) const { return w->isEnabledTo(page.get()); }
    QStringList Items(int tier) const { return ComboItems(Tier(tier)); }
    // Everything the chooser shows or keeps.
    QStringList State() const
    {
        const ChooserState& c = session.chooser;
        QStringList s = {QString::number(copyToFavorites), QString::number(deleteFromDatabase),
                         QString::number(c.currentFood), QString::number(c.currentQuantity),
                         QString::number(c.addingNewItem)};
        for (QWidget* w : page->findChildren<QWidget*>()) {
            s << w->objectName() << QString::number(On(w));
            if (auto* label = qobject_cast<QLabel*>(w))
                s << label->text();
            else if (auto* button = qobject_cast<QPushButton*>(w))
                s << button->text();
            else if (auto* combo = qobject_cast<QComboBox*>(w))
                s << ComboItems(combo).join('|') << combo->currentText() << QString::number(combo->currentIndex());
        }
        for (int k = 0; k < 4 * 12; ++k)
            s << QString::number(session.tierMap.Get(k % 12, k / 12));
        for (const std::int32_t value : c.currentNutrients)
            s << QString::number(value);
        for (const std::int32_t percent : c.currentPercents)
            s << QString::number(percent);
        return s;
    }
    // Nothing below tier t is chosen, listed or enabled.
    void VerifyResetBelow(int tier) const
    {
        for (int t = tier + 1; t < 4; ++t) {
            QVERIFY2(!On(Tier(t)) && (t == tier + 1 || Tier(t)->count() == 0), qPrintable(QString::number(t)));
            QCOMPARE(Tier(t)->currentIndex(), -1);
        }
        QVERIFY(!On(Qty()) && !On(Lab("labTier", 3)) && !On(Lab("labOf")));
        for (int i = 0; i < 8; ++i)
            QVERIFY(!On(Lab("labNutrVal", i)) && !On(Lab("labNutr", i)) && Lab("labNutrVal", i)->text().isEmpty());
        QVERIFY(!copyToFavorites && !deleteFromDatabase);
    }
    const std::vector<RecordedMessage>& Messages() const { return fakes.prompts.messages; }

    TempFolder folder;
    FakeSeams fakes;
    FoodSession session;
    bool copyToFavorites = false;
    bool deleteFromDatabase = false;
    std::unique_ptr<FoodChooserPage> page;
};

const QStringList kButterTbsp = {"Dairy and Eggs", "Butter", "Salted", "1 tbsp"};

}  // namespace

class FoodChooserTest : public QObject {
    Q_OBJECT

private slots:
    void EmptyFavoritesOffersHelpOtherEmptyGroupsSayNothing()
    {
        const struct {
            QStringList choice;
            bool answerYes, asked;
            QStringList listed;
        } cases[] = {
            {{"Favorites", "My Favorites"}, true, true, {}},
            {{"Favorites", "My Favorites"}, false, true, {}},
            {{"Favorites", "Soups"}, true, false, {"Stew"}},
            {{"Zz Empty", "Nothing"}, true, false, {}},
        };
        for (const auto& [choice, answerYes, asked, listed] : cases) {
            Chooser c;
            c.fakes.prompts.answers.push_back(answerYes ? MsgResult::Yes : MsgResult::No);
            c.Choose(choice);
            QCOMPARE(c.Items(2), listed);
            c.VerifyResetBelow(2);
            QCOMPARE(Shown(c.Messages()), asked ? QStringList{"Category is empty|2|1|" + kCategoryEmpty} : QStringList());
            const auto& help = c.fakes.help.calls;
            QCOMPARE(help.size(), size_t(asked && answerYes));
            if (!help.empty())
                QVERIFY(help[0].command == 1 && help[0].context == 6);
        }
    }

    void ATierOperationRunAgainChangesNothingAndAnEmptyChoiceResetsBelow()
    {
        for (const QStringList& food : {kButterTbsp, QStringList{"Vegetables", "Carrots", "Raw", "1 medium"}}) {
            for (int tier = 0; tier < 4; ++tier) {
                Chooser c;
                c.Choose(food.mid(0, tier + 1));
                const QStringList once = c.State();
                emit c.Tier(tier)->activated(c.Tier(tier)->currentIndex());
                QCOMPARE(c.State(), once);
                c.Pick(tier, food[tier]);
                QCOMPARE(c.State(), once);

                // As code clears a tier's choice (the search dialog clears the measure).
                c.Choose(food);
                c.Tier(tier)->setCurrentIndex(-1);
                emit c.Tier(tier)->activated(c.Tier(tier)->currentIndex());
                c.VerifyResetBelow(tier);
                if (tier < 3)
                    QCOMPARE(c.Items(tier + 1), QStringList());
            }
        }
    }

    void BadQuantitiesAreRefusedWithTheirMessage_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("message");  // empty: none
        for (const char* typed : {"1 1/2", "1/2/3", "1.5/2", "1/2-1", "2..5", "abc", "0.12345678", "-4", "1/2x"})
            QTest::newRow(typed) << typed << kInputError;
        for (const char* typed : {"100", "99.01", "99.5", "123456789"})
            QTest::newRow(typed) << typed << kLimit;
        for (const char* typed : {"0", "", "1/", "1/0", "2-1/0", "  "})
            QTest::newRow(qPrintable(QStringLiteral("'%1'").arg(typed))) << typed << QString();
    }
    void BadQuantitiesAreRefusedWithTheirMessage()
    {
        QFETCH(QString, typed);
        QFETCH(QString, message);
        Chooser c;
        c.Choose({"Vegetables", "Peas", "Snow"});
        QVERIFY(c.On(c.Btn("btnAcceptItem")));
        c.Enter(typed);
        for (int i = 0; i < 8; ++i)
            QVERIFY(!c.On(c.Lab("labNutrVal", i)) && !c.On(c.Lab("labNutrUnit", i)) && !c.On(c.Lab("labNutr", i)));
        QCOMPARE(c.Lab("labNutrVal", kProtein)->text(), QStringLiteral("5"));  // captions stay
        if (message.isEmpty()) {
            QVERIFY(c.Messages().empty());
            QVERIFY(!c.On(c.Btn("btnAcceptItem")));
            QCOMPARE(c.Qty()->currentText(), typed);
        } else {
            QCOMPARE(Shown(c.Messages()), QStringList{"Error in your input|3|0|" + message});
            QVERIFY(c.On(c.Btn("btnAcceptItem")));  // left as it was
            QCOMPARE(c.Qty()->currentText(), QString());
            // The emptied box is 0 at the next key: Accept goes off, silently.
            QTest::keyRelease(c.Qty(), Qt::Key_Shift);
            QCOMPARE(c.Messages().size(), size_t(1));
            QVERIFY(!c.On(c.Btn("btnAcceptItem")));
        }
    }

    // The records that keep an empty group have no description: shown down
    // to their subgroup, with the offer of help for an empty Favorites.
    // Foods are shown in all four tiers where a row or a search shows them.
    void RecreateTiersStopsAtARecordWithoutDescription()
    {
        const FoodTable table = ChooserTable();
        for (int index = 0; index <= table.LastIndex(); ++index) {
            if (!table.Description(index).empty())
                continue;
            Chooser c;
            c.Choose({"Fruits", "Apples"});
            c.fakes.prompts.answers.push_back(MsgResult::No);
            c.page->RecreateTiers(index);
            QCOMPARE(c.Tier(1)->currentText(), QString::fromLatin1(table.Subgroup(index)));
            QCOMPARE(c.Items(2), QStringList());
            c.VerifyResetBelow(2);
            QCOMPARE(c.Messages().size(), size_t(table.Group(index) == "Favorites"));
        }
    }
};

QTEST_MAIN(FoodChooserTest)
#include "FoodChooserTest.moc"

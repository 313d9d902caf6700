// The chooser on the delivered data.dat: every group leads through its
// subgroups, descriptions and measures to a food with its nutrients.
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "Fixtures.h"
#include "WindowTestSupport.h"
#include "core/LineFile.h"
#include "foodlist/FoodListPage.h"

using namespace pw;
using namespace pw::test;

namespace {

void Pick(QComboBox* combo, int index)
{
    combo->setCurrentIndex(index);
    emit combo->activated(index);
}

}  // namespace

class DeliveredChooserTest : public QObject {
    Q_OBJECT

private slots:
    void EveryGroupsFirstFoodShowsItsNutrients()
    {
        ProgramHarness program;
        WriteProgramFolder(program.folder.Path(), ReadWholeFile(PLATEWELL_DELIVERED_DATA), QuietSettings());
        program.folder.Write("default.pwp", "NAME:Ann\r\nYOB:62\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:130\r\n"
                                            "SEX: 0 \r\nLIFESTYLE: 2 \r\n");
        QVERIFY(program.Start());
        QVERIFY(program.fakes.prompts.messages.empty());
        const FoodTable& table = program.session.foodTable;
        QVERIFY(table.Count() > 3000);
        MainWindow& w = *program.main;
        FoodListPage& page = *w.foodListPage;
        QVERIFY(page.comTier0->count() >= 16);

        int foodsShown = 0;
        for (int g = 0; g < page.comTier0->count(); ++g) {
            const QString group = page.comTier0->itemText(g);
            page.btnNewItem->click();
            Pick(page.comTier0, g);
            QVERIFY2(page.comTier1->count() > 0, qPrintable(group));
            Pick(page.comTier1, 0);
            if (page.comTier2->count() == 0) {
                QCOMPARE(group, QStringLiteral("Favorites"));  // the only group kept empty
                continue;
            }
            Pick(page.comTier2, 0);
            QVERIFY2(page.comTier3->count() > 0, qPrintable(group));
            if (page.comTier3->count() > 1) {
                QVERIFY(!page.comQuantity->isEnabled() && page.labNutrVal[0]->text().isEmpty());
                Pick(page.comTier3, 0);
            }

            const int food = program.session.chooser.currentFood;
            QCOMPARE(QString::fromLatin1(table.Group(food)), group);
            QCOMPARE(QString::fromLatin1(table.Subgroup(food)), page.comTier1->currentText());
            QCOMPARE(QString::fromLatin1(table.Description(food)), page.comTier2->currentText());
            QCOMPARE(QString::fromLatin1(table.Measure(food)), page.comTier3->currentText());
            // One of the food's measures: the values as the table holds them.
            for (int i = 0; i < kShownNutrients; ++i)
                QCOMPARE(page.labNutrVal[i]->text(), QString::number(table.Value(food, Nutrient(i))));
            QVERIFY(page.btnAcceptItem->isEnabled());
            QVERIFY(w.findChild<QAction*>("mnuCopyToFavorites")->isEnabled());
            QVERIFY(w.findChild<QAction*>("mnuDeleteFromDatabase")->isEnabled());

            // And the same food found again from its index.
            page.btnNewItem->click();
            page.RecreateTiers(food);
            QCOMPARE(program.session.chooser.currentFood, food);
            QCOMPARE(page.comTier3->currentText(), QString::fromLatin1(table.Measure(food)));
            ++foodsShown;
        }
        QVERIFY(foodsShown >= 15);
        QCOMPARE(program.fakes.prompts.messages.size(), size_t(page.comTier0->count() - foodsShown));
    }
};

QTEST_MAIN(DeliveredChooserTest)
#include "DeliveredChooserTest.moc"

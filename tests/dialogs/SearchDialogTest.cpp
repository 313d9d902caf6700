#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QTest>

#include "Fixtures.h"
#include "WindowTestSupport.h"
#include "dialogs/views/SearchDialog.h"
#include "foodlist/views/FoodListPage.h"

using namespace pw;
using namespace pw::test;

namespace {

// The running program on the sample foods and 205 zucchini, more than the
// dialog lists; Search opened from a new item.
struct Program {
    Program()
    {
        FoodTable table = SampleTable();
        for (int n = 0; n < 205; ++n)
            table.Append(Food("Vegetables", "Zucchini", "Zucchini " + std::to_string(1000 + n), "1 cup", 1, 4, 0));
        h.StartOn(DataFileBytes(table));
        page().btnNewItem->click();
        page().btnSearch->click();
    }
    FoodListPage& page() const { return *h.main->foodListPage; }
    SearchDialog& d() const { return *h.main->frmSearch; }
    void Search(const QString& term) const
    {
        QTest::keyClicks(d().txtSearch, term);
        d().btnSearch->click();
    }
    void ClickRow(int row) const
    {
        QTableWidget* grid = d().gridSearch;
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(grid->model()->index(row - 1, 1)).center());
    }
    QStringList Row(int row) const
    {
        return {d().gridSearch->item(row - 1, 0)->text(), d().gridSearch->item(row - 1, 1)->text(),
                d().gridSearch->item(row - 1, 2)->text()};
    }
    // Shown, with an empty box to type in and nothing else to do but leave.
    void VerifyReady() const
    {
        const SearchDialog& s = d();
        QVERIFY(s.isVisible() && s.txtSearch->isEnabled() && s.txtSearch->text().isEmpty());
        QVERIFY(!s.btnSearch->isEnabled() && !s.btnNewSearch->isEnabled() && !s.btnAccept->isEnabled());
        QVERIFY(!s.frameResults->isEnabled() && !s.gridSearch->isEnabled() && !s.labPrimary->isEnabled());
        QCOMPARE(s.gridSearch->rowCount(), 0);
        QCOMPARE(s.gridSearch->horizontalScrollBar()->value(), 0);
        QVERIFY(s.labPrimary->text().isEmpty() && s.labDescription->text().isEmpty());
        QVERIFY(s.ResultCount() == 0 && s.SelectedResult() == 0);
    }
    QStringList Tiers() const
    {
        QStringList s;
        for (QComboBox* combo : {page().comTier0, page().comTier1, page().comTier2, page().comTier3})
            s << ComboItems(combo) << QString::number(combo->currentIndex()) << QString::number(combo->isEnabled());
        return s;
    }
    const std::vector<RecordedMessage>& Messages() const { return h.fakes.prompts.messages; }

    ProgramHarness h;
};

}  // namespace

class SearchDialogTest : public QObject {
    Q_OBJECT

private slots:
    void AResultAcceptedShowsTheFoodInTheChooser()
    {
        Program p;
        SearchDialog& d = p.d();
        QCOMPARE(QApplication::activeModalWidget(), &d);
        QCOMPARE(d.windowModality(), Qt::WindowModal);
        p.VerifyReady();

        // Deleting the typed term disables Start Search again.
        QTest::keyClicks(d.txtSearch, QStringLiteral("ER"));
        QVERIFY(d.btnSearch->isEnabled());
        QTest::keyClick(d.txtSearch, Qt::Key_Backspace);
        QTest::keyClick(d.txtSearch, Qt::Key_Backspace);
        QVERIFY(!d.btnSearch->isEnabled());

        // Across the join of subgroup and description; one row for the two
        // measures of the butter.
        p.Search(QStringLiteral("erSAL"));
        QCOMPARE(d.ResultCount(), 1);
        QCOMPARE(p.Row(1), QStringList({"Dairy and Eggs", "Butter", "Salted"}));
        QVERIFY(!d.txtSearch->isEnabled() && !d.btnSearch->isEnabled() && d.btnNewSearch->isEnabled());
        QVERIFY(d.gridSearch->isEnabled() && !d.btnAccept->isEnabled() && !d.labPrimary->isEnabled());

        p.ClickRow(1);
        QCOMPARE(QStringList({d.labPrimary->text(), d.labSecondary->text(), d.labDescription->text()}), p.Row(1));
        QVERIFY(d.labPrimary->isEnabled() && d.labDescriptionLabel->isEnabled());
        d.btnAccept->click();

        // The food in the four tiers, its measure still to choose.
        QVERIFY(!d.isVisible());
        FoodListPage& page = p.page();
        QCOMPARE(p.Tiers(), QStringList({"Bakery and Grains", "Beverages", "Dairy and Eggs", "Favorites", "Fruits",
                                         "Vegetables", "2", "1", "Butter", "Cheese", "Milk", "0", "1", "Salted", "0",
                                         "1", "1 pat", "1 tbsp", "-1", "1"}));
        QCOMPARE(page.btnAcceptItem->text(), QStringLiteral("Accept"));
        QVERIFY(!page.btnAcceptItem->isEnabled() && !page.btnDeleteItem->isEnabled());
        QVERIFY(!page.comQuantity->isEnabled() && page.labNutrVal[kSodium]->text().isEmpty());
        page.comTier3->setCurrentIndex(1);
        emit page.comTier3->activated(1);
        QCOMPARE(page.labNutrVal[kSodium]->text(), QStringLiteral("82"));
        page.btnAcceptItem->click();
        QCOMPARE(p.h.session.foodList.Count(), 1);

        // The same dialog again, with nothing of the last search.
        page.btnNewItem->click();
        page.btnSearch->click();
        QCOMPARE(p.h.main->frmSearch, &d);
        p.VerifyReady();
        QVERIFY(p.Messages().empty());

        // A double click on a result accepts it.
        p.Search(QStringLiteral("cheddar"));
        QTableWidget* grid = d.gridSearch;
        const QPoint cell = grid->visualRect(grid->model()->index(0, 2)).center();
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell);
        QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, cell);
        QVERIFY(!d.isVisible());
        QCOMPARE(page.comTier2->currentText(), QStringLiteral("Cheddar"));
    }

    void NewSearchAndCancelResetTheDialog()
    {
        Program p;
        SearchDialog& d = p.d();
        const QStringList chooser = p.Tiers();

        p.Search(QStringLiteral("zucchini"));
        QCOMPARE(p.Messages().size(), size_t(1));
        QCOMPARE(p.Messages()[0].text,
                 QStringLiteral("Over 200 matching items found.\r\nOnly the first 200 will be shown."));
        QVERIFY(p.Messages()[0].title == "Search" && p.Messages()[0].icon == MsgIcon::Exclamation);
        QCOMPARE(d.gridSearch->rowCount(), 199);
        QCOMPARE(p.Row(199), QStringList({"Vegetables", "Zucchini", "Zucchini 1198"}));
        p.ClickRow(3);
        QApplication::processEvents();  // the scroll bar's range follows the rows
        d.gridSearch->horizontalScrollBar()->setValue(d.gridSearch->horizontalScrollBar()->maximum());
        QVERIFY(d.btnAccept->isEnabled() && d.gridSearch->horizontalScrollBar()->value() > 0);
        d.btnNewSearch->click();
        p.VerifyReady();

        p.Search(QStringLiteral("zz"));
        QCOMPARE(p.Messages().size(), size_t(2));
        QVERIFY(p.Messages()[1].text == "No matching items found." && p.Messages()[1].title == "Search" &&
                p.Messages()[1].icon == MsgIcon::Information);
        QVERIFY(!d.gridSearch->isEnabled() && !d.txtSearch->isEnabled() && d.btnNewSearch->isEnabled());

        // Cancel, or Escape, leaves the chooser as it was.
        for (int key : {0, int(Qt::Key_Escape)}) {
            d.btnNewSearch->click();
            p.Search(QStringLiteral("Milk"));
            p.ClickRow(1);
            if (key)
                QTest::keyClick(&d, Qt::Key(key));
            else
                d.btnCancel->click();
            QVERIFY(!d.isVisible());
            QCOMPARE(p.Tiers(), chooser);
            p.page().btnSearch->click();
            p.VerifyReady();
        }
    }
};

QTEST_MAIN(SearchDialogTest)
#include "SearchDialogTest.moc"

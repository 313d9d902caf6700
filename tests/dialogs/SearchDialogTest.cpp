// The search dialog alone on the sample foods and 205 zucchini, more than it
// lists, taken step by step with its state after each step; the whole
// program where the chooser opens it and shows the food accepted.
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>

#include "Fixtures.h"
#include "WindowTestSupport.h"
#include "dialogs/views/SearchDialog.h"

using namespace pw;
using namespace pw::test;

namespace {

// The search dialog worked through its named controls.
struct Driver {
    // A step as the user takes it: "type TEXT", "erase" (the box emptied key
    // by key), "click ROW", "double ROW" (clicked, then double-clicked),
    // "scroll" (the grid moved sideways to its end), "escape", "open", or a
    // button by its name.
    void Do(const QString& step) const
    {
        const QString verb = step.section(' ', 0, 0), arg = step.section(' ', 1);
        const QPoint cell = grid->visualRect(grid->model()->index(arg.toInt() - 1, 1)).center();
        if (verb == "type")
            QTest::keyClicks(text, arg);
        else if (verb == "erase")
            while (!text->text().isEmpty())
                QTest::keyClick(text, Qt::Key_Backspace);
        else if (verb == "click" || verb == "double")
            QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell);
        else if (verb == "scroll")
            QApplication::processEvents();  // the scroll bar's range follows the rows
        else if (verb == "escape")
            QTest::keyClick(&d, Qt::Key_Escape);
        else if (verb == "open")
            d.open();
        else
            Find<QPushButton>(d, verb)->click();
        if (verb == "double")
            QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, cell);
        if (verb == "scroll")
            grid->horizontalScrollBar()->setValue(grid->horizontalScrollBar()->maximum());
    }
    // Shown or hidden; which controls take input (the box, Start Search, New
    // Search, Accept, the results frame and grid, the food's group and its
    // description caption); the results, the grid's rows, the row chosen and
    // whether the grid is scrolled sideways; the food shown; the box's text;
    // the grid's last row.
    QString State() const
    {
        QString s = d.isVisible() ? QStringLiteral("shown ") : QStringLiteral("hidden ");
        for (const char* name : {"txtSearch", "btnSearch", "btnNewSearch", "btnAccept", "frameResults", "gridSearch",
                                 "labPrimary", "labDescriptionLabel"})
            s += Find<QWidget>(d, name)->isEnabled() ? '1' : '0';
        const int scrolled = grid->horizontalScrollBar()->value() > 0;
        for (int n : {d.ResultCount(), grid->rowCount(), d.SelectedResult(), scrolled})
            s += ' ' + QString::number(n);
        s += ' ' + Find<QLabel>(d, "labPrimary")->text() + '/' + Find<QLabel>(d, "labSecondary")->text() + '/' +
             Find<QLabel>(d, "labDescription")->text() + " [" + text->text() + ']';
        for (int column = 0; column < 3 && grid->rowCount() > 0; ++column) {
            const QTableWidgetItem* cell = grid->item(grid->rowCount() - 1, column);
            s += (column ? '/' : ' ') + (cell ? cell->text() : QStringLiteral("?"));
        }
        return s;
    }

    SearchDialog& d;
    QLineEdit* text = Find<QLineEdit>(d, "txtSearch");
    QTableWidget* grid = Find<QTableWidget>(d, "gridSearch");
};

const QString kReady = QStringLiteral("shown 10000000 0 0 0 0 // []");

// The dialog alone, taken through steps.
struct Alone {
    Alone()
    {
        session.foodTable = SampleTable();
        for (int n = 0; n < 205; ++n)
            session.foodTable.Append(
                Food("Vegetables", "Zucchini", "Zucchini " + std::to_string(1000 + n), "1 cup", 1, 4, 0));
    }
    // Each step, then the state it leaves, with the foods handed on so far.
    void Run(const std::vector<std::pair<QString, QString>>& steps)
    {
        for (const auto& [step, state] : steps) {
            driver.Do(step);
            QString chosen;
            for (const QList<QVariant>& signal : foodChosen)
                chosen += QStringLiteral(" chose %1").arg(signal.at(0).toInt());
            QCOMPARE(driver.State() + chosen, state);
        }
    }

    FoodSession session;
    FakeSeams fakes;
    bool ended = false;
    ErrorGuard guard{ended, fakes.prompts};
    SearchDialog d{session, fakes.seams, &guard};
    Driver driver{d};
    QSignalSpy foodChosen{&d, &SearchDialog::foodChosen};
};

}  // namespace

class SearchDialogTest : public QObject {
    Q_OBJECT

private slots:
    void AResultIsFoundAcrossSubgroupAndDescriptionAndAccepted()
    {
        Alone a;
        // One row for the two measures of the butter; a double click accepts.
        const QString butter = QStringLiteral("Dairy and Eggs/Butter/Salted");
        a.Run({{"open", kReady},
               {"type ER", "shown 11000000 0 0 0 0 // [ER]"},
               {"erase", kReady},
               {"type erSAL", "shown 11000000 0 0 0 0 // [erSAL]"},
               {"btnSearch", "shown 00101100 1 1 0 0 // [erSAL] " + butter},
               {"click 1", "shown 00111111 1 1 1 0 " + butter + " [erSAL] " + butter},
               {"btnAccept", "hidden 10000000 0 0 0 0 // [] chose 3"},
               {"open", kReady + " chose 3"},
               {"type cheddar", "shown 11000000 0 0 0 0 // [cheddar] chose 3"},
               {"btnSearch", "shown 00101100 1 1 0 0 // [cheddar] Dairy and Eggs/Cheese/Cheddar chose 3"},
               {"double 1", "hidden 10000000 0 0 0 0 // [] chose 3 chose 5"}});
        QVERIFY(a.fakes.prompts.messages.empty());
    }

    void NewSearchAndCancelResetTheDialog()
    {
        Alone a;
        const QString zucchini = QStringLiteral(" [zucchini] Vegetables/Zucchini/Zucchini 1198");
        a.Run({{"open", kReady},
               {"type zucchini", "shown 11000000 0 0 0 0 // [zucchini]"},
               {"btnSearch", "shown 00101100 199 199 0 0 //" + zucchini},
               {"click 3", "shown 00111111 199 199 3 0 Vegetables/Zucchini/Zucchini 1002" + zucchini},
               {"scroll", "shown 00111111 199 199 3 1 Vegetables/Zucchini/Zucchini 1002" + zucchini},
               {"btnNewSearch", kReady},
               {"type zz", "shown 11000000 0 0 0 0 // [zz]"},
               {"btnSearch", "shown 00100000 0 0 0 0 // [zz]"},
               // Cancel, or Escape, leaves without a food; the next opening
               // starts empty.
               {"btnNewSearch", kReady},
               {"type Milk", "shown 11000000 0 0 0 0 // [Milk]"},
               {"btnSearch", "shown 00101100 1 1 0 0 // [Milk] Dairy and Eggs/Milk/Whole"},
               {"click 1", "shown 00111111 1 1 1 0 Dairy and Eggs/Milk/Whole [Milk] Dairy and Eggs/Milk/Whole"},
               {"btnCancel", "hidden 00000000 0 0 0 0 // []"},
               {"open", kReady},
               {"type Milk", "shown 11000000 0 0 0 0 // [Milk]"},
               {"btnSearch", "shown 00101100 1 1 0 0 // [Milk] Dairy and Eggs/Milk/Whole"},
               {"escape", "hidden 00000000 0 0 0 0 // []"},
               {"open", kReady}});
        const auto& said = a.fakes.prompts.messages;
        QVERIFY(said.size() == 2 && Shown(said[1]) == "Search|1|0|No matching items found.");
        QCOMPARE(Shown(said[0]),
                 QStringLiteral("Search|3|0|Over 200 matching items found.\r\nOnly the first 200 will be shown."));
    }

    void TheChooserOpensTheSearchAndShowsTheFoodAccepted()
    {
        ProgramHarness h;
        h.StartOn(DataFileBytes(SampleTable()));
        const auto& page = *Find<QWidget>(*h.main, "pageFoodList");
        const auto button = [&page](const char* name) { return Find<QPushButton>(page, name); };
        button("btnNewItem")->click();
        button("btnSearch")->click();
        auto& d = *Find<SearchDialog>(*h.main, "frmSearch");
        QVERIFY(QApplication::activeModalWidget() == &d && d.windowModality() == Qt::WindowModal);
        QCOMPARE(ClippedTexts(d), QStringList());
        for (const char* step : {"type erSAL", "btnSearch", "click 1", "btnAccept"})
            Driver{d}.Do(QString::fromLatin1(step));

        // The food in the four tiers, its measure still to choose.
        QStringList tiers;
        for (const char* name : {"comTier0", "comTier1", "comTier2", "comTier3"}) {
            const auto* combo = Find<QComboBox>(page, name);
            tiers << ComboItems(combo) << QString::number(combo->currentIndex()) << QString::number(combo->isEnabled());
        }
        QCOMPARE(tiers, QStringList({"Bakery and Grains", "Beverages", "Dairy and Eggs", "Favorites", "Fruits",
                                     "Vegetables", "2", "1", "Butter", "Cheese", "Milk", "0", "1", "Salted", "0", "1",
                                     "1 pat", "1 tbsp", "-1", "1"}));
        QCOMPARE(button("btnAcceptItem")->text(), QStringLiteral("Accept"));
        QVERIFY(!button("btnAcceptItem")->isEnabled() && !button("btnDeleteItem")->isEnabled());
        auto* sodium = Find<QLabel>(page, "labNutrVal7");
        QVERIFY(!Find<QComboBox>(page, "comQuantity")->isEnabled() && sodium->text().isEmpty());
        auto* measures = Find<QComboBox>(page, "comTier3");
        measures->setCurrentIndex(1);
        emit measures->activated(1);
        QCOMPARE(sodium->text(), QStringLiteral("82"));  // the tablespoon's sodium
        button("btnAcceptItem")->click();
        QCOMPARE(h.session.foodList.Count(), 1);

        // The same dialog again, from a new item.
        button("btnNewItem")->click();
        QCOMPARE(button("btnAcceptItem")->text(), QStringLiteral("Add to List"));
        button("btnSearch")->click();
        QVERIFY(d.isVisible() && h.main->findChildren<SearchDialog*>().size() == 1);
    }
};

QTEST_MAIN(SearchDialogTest)
#include "SearchDialogTest.moc"

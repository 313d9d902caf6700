#pragma once
// The main window's grid of chosen foods (gridMain) and the commands that
// change the list: a row added or changed from the chooser, a row deleted,
// the list cleared, and a clicked row loaded back into the chooser.
#include <QObject>
#include <QPersistentModelIndex>
#include <QString>
#include <functional>

#include "foodlist/FoodList.h"

class QTableWidget;

namespace pw {

class ErrorGuard;
class FoodChooserPage;
struct Seams;
struct FoodSession;

// What the grid needs of the main window.
struct GridHooks {
    std::function<void()> populateGridHeader;  // captions and (remembered) widths
    std::function<bool()> viewByUnits;         // false: percent of DV
    std::function<void(int, const QString&)> setDailyIntake;  // analysis label i
};

class FoodListGrid : public QObject {
    Q_OBJECT
signals:
    // Rows were added or removed: the list commands follow the count.
    void listLengthChanged();

public:
    // Wires the chooser's Accept and Delete buttons and the grid's clicks;
    // each runs under guard.
    FoodListGrid(FoodSession& session, Seams& seams, ErrorGuard& guard, QTableWidget& gridMain, FoodChooserPage& chooser,
                 GridHooks hooks, QObject* parent = nullptr);

    // Stores the chooser's food as a new row, or over the selected row while
    // a row is being changed; a 501st row is refused with a message.
    void btnAcceptItem_Click();
    // Writes row's cells (1..Count) in the current view and the totals as
    // daily intake. While rows are being added the grid holds one empty row
    // below the last entry.
    void PushToList(int row);
    // The header, then every row in order.
    void RefreshGrid();
    // The list's totals in the analysis' daily-intake labels.
    void ShowDailyIntake(IntakeStyle style);
    // Appends an entry made elsewhere (a list being opened) and writes its
    // row, with the empty row below it.
    void AppendEntry(FoodListEntry entry);
    // Deletes the selected row after the user confirms. The list stays
    // saved if it was: only adding or changing a row asks to save it again.
    void btnDeleteItem_Click();
    // No rows, the chooser reset and the list commands disabled.
    void ClearGrid();
    // A click on grid row (1..Count an entry; 0 the header; above Count the
    // empty row or the area below): loads the entry into the chooser for
    // changing, or resets the chooser.
    void gridMain_Click(int row);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool ViewByUnits() const;

    FoodSession& session_;
    Seams& seams_;
    ErrorGuard& guard_;
    QTableWidget& grid_;
    FoodChooserPage& chooser_;
    GridHooks hooks_;
    // Set while code changes the grid's rows, whose current cell moves with
    // them: that is no choice of the user's.
    bool writing_ = false;
    // A mouse button is down on the grid: the click that follows, not the
    // move of the current cell, loads the row.
    bool mousePressed_ = false;
    QPersistentModelIndex pressedIndex_;
};

}  // namespace pw

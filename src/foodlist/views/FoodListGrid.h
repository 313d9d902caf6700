#pragma once
// The main window's grid of chosen foods (gridMain) and the commands that
// reach the list from it and the chooser: a row added or changed, a row
// deleted, and a clicked row loaded back into the chooser. The rows
// themselves change only through the list's model.
#include <QObject>
#include <QPersistentModelIndex>

class QTableView;

namespace pw {

class ErrorGuard;
class FoodChooserPage;
struct Seams;
struct FoodSession;

class FoodListModel;

class FoodListGrid : public QObject {
    Q_OBJECT
public:
    // Puts model under gridMain and wires the chooser's Accept and Delete
    // buttons and the grid's clicks; each runs under guard. Every change of
    // the list leaves no row loaded in the chooser and none selected.
    FoodListGrid(FoodSession& session, Seams& seams, ErrorGuard& guard, QTableView& gridMain, FoodListModel& model,
                 FoodChooserPage& chooser, QObject* parent = nullptr);

private:

    // Stores the chooser's food as a new row, or over the selected row while
    // a row is being changed; a 501st row is refused with a message.
    void btnAcceptItem_Click();
    // Deletes the selected row after the user confirms. The list stays
    // saved if it was: only adding or changing a row asks to save it again.
    void btnDeleteItem_Click();
    // A click on grid row (1..Count an entry; 0 the header; above Count the
    // empty row or the area below): loads the entry into the chooser for
    // changing, or resets the chooser.
    void gridMain_Click(int row);

    bool eventFilter(QObject* watched, QEvent* event) override;
    void ListChanged();
    int CurrentRow() const;

    FoodSession& session_;
    Seams& seams_;
    ErrorGuard& guard_;
    QTableView& grid_;
    FoodListModel& model_;
    FoodChooserPage& chooser_;
    // Set while code changes the grid's rows, whose current cell moves with
    // them: that is no choice of the user's.
    bool writing_ = false;
    // A mouse button is down on the grid: the click that follows, not the
    // move of the current cell, loads the row.
    bool mousePressed_ = false;
    QPersistentModelIndex pressedIndex_;
};

}  // namespace pw

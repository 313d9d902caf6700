#pragma once
// The food list as the main grid shows it, and the one way the list changes:
// adding, changing and deleting a row, clearing the list and opening one are
// each a step on one undo stack. Every step done, undone or redone tells the
// change once, by listChanged; the grid, the totals, the chart and the menus
// follow that signal.
#include <QAbstractTableModel>
#include <QUndoStack>
#include <optional>
#include <vector>

#include "foodlist/FoodList.h"

namespace pw {

struct FoodSession;

class FoodListModel : public QAbstractTableModel {
    Q_OBJECT
signals:
    // The rows, and so their totals, changed.
    void listChanged();
    // An opened list is being taken back (undo true) or opened again: what
    // came with it from its file follows before its rows do.
    void openStepping(bool undo);
    // A cleared list taken back (its file named again) or cleared again
    // (no file).
    void listFileStepped(const QString& file);

public:
    explicit FoodListModel(FoodSession& session, QObject* parent = nullptr);
    ~FoodListModel() override;

    // The grid: a row per entry, and the empty row below the last one while
    // the list keeps it; the columns of kColumnCaptions.
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    // Amounts (true) or percents of DV in the nutrient cells.
    void SetViewByUnits(bool byUnits);
    bool ViewByUnits() const { return byUnits_; }

    // The steps, each one command on the stack; a step's name is what the
    // Edit menu offers to undo ("Add Cheddar").
    void AddRow(FoodListEntry entry);
    void ChangeRow(int row, FoodListEntry entry);
    // The list stays saved if it was.
    void DeleteRow(int row);
    // file: the list file the clear forgets, if any.
    void ClearList(const QString& file = {});
    // The list read from a file named name replaces the list; nothing
    // before it can be undone, and the list is saved as it stands.
    void OpenList(std::vector<FoodListEntry> rows, const QString& name);

    // Undo and redo of the last step: no row stays loaded, and the list is
    // saved exactly when it is back as last saved or opened.
    void Undo();
    void Redo();
    const QUndoStack& Stack() const { return stack_; }

    // The list was written to its file as it stands.
    void MarkSaved();
    // Nothing done so far can be undone (a new profile).
    void ForgetHistory();

private:
    friend class ListCommand;
    // The model operations behind the commands, each with the grid's rows
    // moved along.
    void OpAppend(FoodListEntry entry);
    void OpRemove(int row, bool blankRowAfter);
    void OpInsert(int row, FoodListEntry entry);
    void OpReplace(int row, FoodListEntry entry);
    void OpAssign(std::vector<FoodListEntry> entries, bool blankRowBelow);
    // Does the step; savedAfter: the saved flag it leaves, else as its
    // operations leave it.
    void Push(class ListCommand* command, std::optional<bool> savedAfter = std::nullopt);
    void AfterHistoryStep();

    FoodSession& session_;
    FoodList& list_;
    QUndoStack stack_;
    bool byUnits_ = true;
    bool savedBeforeOpen_ = false;  // the list an open replaced was saved
};

}  // namespace pw

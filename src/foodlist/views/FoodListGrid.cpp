#include "foodlist/views/FoodListGrid.h"

#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableView>

#include "foodlist/views/FoodChooserPage.h"
#include "foodlist/views/FoodListModel.h"
#include "foodlist/FoodListTexts.h"
#include "core/views/ErrorGuard.h"
#include "core/views/Seams.h"
#include "foodlist/FoodSession.h"

namespace pw {

namespace {


// Sets a flag for the life of a scope.
class FlagScope {
public:
    explicit FlagScope(bool& flag) : flag_(flag), was_(flag) { flag_ = true; }
    ~FlagScope() { flag_ = was_; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

private:
    bool& flag_;
    bool was_;
};

}  // namespace

FoodListGrid::FoodListGrid(FoodSession& session, Seams& seams, ErrorGuard& guard, QTableView& gridMain,
                           FoodListModel& model, FoodChooserPage& chooser, QObject* parent)
    : QObject(parent), session_(session), seams_(seams), guard_(guard), grid_(gridMain), model_(model),
      chooser_(chooser)
{
    // Rows coming and going move the current cell: no choice of the user's.
    // Connected before the grid takes the model, so these run first.
    for (auto about : {&QAbstractItemModel::rowsAboutToBeInserted, &QAbstractItemModel::rowsAboutToBeRemoved})
        connect(&model_, about, this, [this] { writing_ = true; });
    connect(&model_, &FoodListModel::listChanged, this, &FoodListGrid::ListChanged);
    grid_.setModel(&model_);

    ConnectGuarded(&chooser_, &FoodChooserPage::acceptRequested, this, &FoodListGrid::btnAcceptItem_Click, &guard_);
    ConnectGuarded(&chooser_, &FoodChooserPage::deleteRequested, this, &FoodListGrid::btnDeleteItem_Click, &guard_);

    // A click loads the clicked row (again, when it is the current one); a
    // move of the current row by the keys loads it too. The header counts as
    // row 0.
    connect(&grid_, &QTableView::clicked, this, [this](const QModelIndex& at) {
        if (!writing_)
            guard_.Run([&] { gridMain_Click(at.row() + 1); });
    });
    connect(grid_.selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current, const QModelIndex& previous) {
                const int row = current.isValid() ? current.row() : -1;
                const int previousRow = previous.isValid() ? previous.row() : -1;
                if (!writing_ && !mousePressed_ && row != previousRow)
                    guard_.Run([&] { gridMain_Click(row + 1); });
            });
    connect(grid_.horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this] { guard_.Run([&] { gridMain_Click(0); }); });
    grid_.viewport()->installEventFilter(this);
    // The grid is one stop of the Tab key; the arrow keys move inside it.
    grid_.setTabKeyNavigation(false);
    grid_.installEventFilter(this);
}

int FoodListGrid::CurrentRow() const { return grid_.currentIndex().isValid() ? grid_.currentIndex().row() : -1; }

void FoodListGrid::ListChanged()
{
    writing_ = false;
    // No row stays loaded in the chooser; a step taken back or redone, a
    // cleared or opened list selects none either.
    chooser_.ForgetRow();
    if (session_.foodList.selectedRow == 0) {
        FlagScope writing(writing_);
        grid_.clearSelection();
    }
}

bool FoodListGrid::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &grid_ && event->type() == QEvent::FocusIn &&
        static_cast<QFocusEvent*>(event)->reason() != Qt::MouseFocusReason) {
        // Reached by the keyboard, the grid would make its first row current
        // and so load it into the chooser: it shows no row until the user
        // moves to one, except the row the chooser is changing.
        FlagScope writing(writing_);
        static_cast<QObject&>(grid_).event(event);
        const FoodList& list = session_.foodList;
        const bool changingCurrentRow =
            !session_.chooser.addingNewItem && list.selectedRow >= 1 && CurrentRow() + 1 == list.selectedRow;
        if (!changingCurrentRow) {
            grid_.clearSelection();
            grid_.selectionModel()->setCurrentIndex(QModelIndex(), QItemSelectionModel::NoUpdate);
        }
        return true;
    }
    if (watched == &grid_ && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        // The same question as "Delete from List", for the row shown.
        if (chooser_.RowLoaded())
            guard_.Run([&] { btnDeleteItem_Click(); });
        return true;
    }
    const bool press = event->type() == QEvent::MouseButtonPress;
    const bool release = event->type() == QEvent::MouseButtonRelease;
    if (watched != grid_.viewport() || !(press || release))
        return QObject::eventFilter(watched, event);
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() != Qt::LeftButton)
        return QObject::eventFilter(watched, event);
    const QModelIndex at = grid_.indexAt(mouse->position().toPoint());
    if (press) {
        mousePressed_ = true;
        pressedIndex_ = at;
    } else if (mousePressed_) {
        mousePressed_ = false;
        // The grid reports a click only where the button went down and up on
        // one cell. Otherwise the press was dragged, and the row it left
        // current is the one chosen; a click below the last row is a click
        // on no row.
        if (!at.isValid() && !pressedIndex_.isValid())
            guard_.Run([&] { gridMain_Click(0); });
        else if (at != pressedIndex_ || !at.isValid())
            guard_.Run([&] { gridMain_Click(CurrentRow() + 1); });
    }
    return QObject::eventFilter(watched, event);
}

void FoodListGrid::btnAcceptItem_Click()
{
    const FoodList& list = session_.foodList;
    const ChooserState& state = session_.chooser;
    if (state.addingNewItem && list.IsFull()) {
        seams_.prompts.Message(std::string(texts::kListFull), std::string(texts::kTitleListFull),
                               MsgIcon::Exclamation);
        return;
    }
    FoodListEntry entry;
    entry.foodIndex = state.currentFood;
    FoodChooserPage::ChoiceTexts chosen = chooser_.CurrentChoice();
    entry.quantityText = std::move(chosen.quantity);
    entry.group = std::move(chosen.group);
    entry.subgroup = std::move(chosen.subgroup);
    entry.description = std::move(chosen.description);
    entry.measure = std::move(chosen.measure);
    entry.amounts = state.currentNutrients;
    entry.percents = state.currentPercents;

    int row = list.selectedRow;
    if (state.addingNewItem) {
        model_.AddRow(std::move(entry));
        row = list.Count();
    } else {
        model_.ChangeRow(row, std::move(entry));
    }
    grid_.scrollTo(model_.index(row - 1, 0));
}

void FoodListGrid::btnDeleteItem_Click()
{
    const FoodChooserPage::ChoiceTexts chosen = chooser_.CurrentChoice();
    const std::string item = ListItemText(chosen.group, chosen.subgroup, chosen.description);
    const MsgResult answer = seams_.prompts.Message(DeleteQuestionText(item), std::string(texts::kTitleConfirmDelete),
                                                    MsgIcon::Question, MsgButtons::YesNo);
    if (answer != MsgResult::Yes) {
        seams_.prompts.Message(std::string(texts::kDeleteCancelled), std::string(texts::kTitleDeleteFromList),
                               MsgIcon::Information);
        return;
    }
    model_.DeleteRow(session_.foodList.selectedRow);
    {
        FlagScope writing(writing_);
        grid_.clearSelection();
    }
    seams_.prompts.Message(ItemRemovedText(item), std::string(texts::kTitleDeleteFromList), MsgIcon::Information);
    // The data file is written again at exit, as after a change of the table.
    session_.foodTable.DatabaseDirty = true;
}

void FoodListGrid::gridMain_Click(int row)
{
    FoodList& list = session_.foodList;
    list.selectedRow = static_cast<std::int16_t>(row);
    if (row < 1 || row > list.Count()) {
        chooser_.ForgetRow();
        grid_.clearSelection();
        return;
    }
    const FoodListEntry entry = list.Entry(row);
    session_.chooser.addingNewItem = false;
    chooser_.LoadListEntry(entry, model_.ViewByUnits());
}

}  // namespace pw

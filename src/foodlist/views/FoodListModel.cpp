#include "foodlist/views/FoodListModel.h"

#include <functional>
#include <memory>

#include "foodlist/FoodSession.h"

namespace pw {

// One step of the list: what it does and what takes it back, both through
// the model's operations.
class ListCommand : public QUndoCommand {
public:
    ListCommand(const QString& text, std::function<void()> forward, std::function<void()> back)
        : QUndoCommand(text), forward_(std::move(forward)), back_(std::move(back))
    {
    }
    void redo() override { forward_(); }
    void undo() override { back_(); }

private:
    std::function<void()> forward_;
    std::function<void()> back_;
};

namespace {

QString Named(const char* verb, const FoodListEntry& entry)
{
    return QString::fromLatin1(verb) + QLatin1Char(' ') + QString::fromLatin1(entry.description);
}

}  // namespace

FoodListModel::FoodListModel(FoodSession& session, QObject* parent)
    : QAbstractTableModel(parent), session_(session), list_(session.foodList)
{
    // A list never saved or opened has no state to come back to.
    stack_.resetClean();
}

FoodListModel::~FoodListModel() = default;

int FoodListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : list_.Count() + (list_.blankRowBelow ? 1 : 0);
}

int FoodListModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : kGridColumns; }

QVariant FoodListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= list_.Count())
        return {};
    if (role == Qt::DisplayRole)
        return QString::fromLatin1(GridCellText(list_.Entry(index.row() + 1), index.column(), byUnits_));
    if (role == Qt::TextAlignmentRole && index.column() >= kFirstNutrientColumn)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
    return {};
}

QVariant FoodListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 && section < kGridColumns)
        return QString::fromLatin1(kColumnCaptions[static_cast<std::size_t>(section)]);
    return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags FoodListModel::flags(const QModelIndex& index) const
{
    return index.isValid() ? Qt::ItemIsSelectable | Qt::ItemIsEnabled : Qt::NoItemFlags;
}

void FoodListModel::SetViewByUnits(bool byUnits)
{
    byUnits_ = byUnits;
    if (list_.Count() > 0)
        emit dataChanged(index(0, kFirstNutrientColumn), index(list_.Count() - 1, kGridColumns - 1));
}

void FoodListModel::OpAppend(FoodListEntry entry)
{
    // The new entry goes in above the empty row, which comes with it when
    // the list had none.
    const int first = list_.Count();
    beginInsertRows({}, first, list_.blankRowBelow ? first : first + 1);
    list_.Append(std::move(entry));
    endInsertRows();
}

void FoodListModel::OpRemove(int row, bool blankRowAfter)
{
    beginRemoveRows({}, row - 1, row - 1);
    list_.Delete(row);
    endRemoveRows();
    if (list_.blankRowBelow && !blankRowAfter) {
        beginRemoveRows({}, list_.Count(), list_.Count());
        list_.blankRowBelow = false;
        endRemoveRows();
    }
}

void FoodListModel::OpInsert(int row, FoodListEntry entry)
{
    beginInsertRows({}, row - 1, row - 1);
    list_.Insert(row, std::move(entry));
    endInsertRows();
}

void FoodListModel::OpReplace(int row, FoodListEntry entry)
{
    list_.Replace(row, std::move(entry));
    emit dataChanged(index(row - 1, 0), index(row - 1, kGridColumns - 1));
}

void FoodListModel::OpAssign(std::vector<FoodListEntry> entries, bool blankRowBelow)
{
    // Rows out and rows in, not a reset: a reset would forget the widths
    // of the grid's columns.
    if (rowCount() > 0) {
        beginRemoveRows({}, 0, rowCount() - 1);
        list_.Clear();
        endRemoveRows();
    }
    list_.Clear();
    const int rows = static_cast<int>(entries.size()) + (blankRowBelow ? 1 : 0);
    if (rows > 0)
        beginInsertRows({}, 0, rows - 1);
    list_.Assign(std::move(entries));
    list_.blankRowBelow = blankRowBelow;
    if (rows > 0)
        endInsertRows();
}

void FoodListModel::Push(ListCommand* command, std::optional<bool> savedAfter)
{
    stack_.push(command);
    if (savedAfter)
        list_.listSaved = *savedAfter;
    emit listChanged();
}

void FoodListModel::AfterHistoryStep()
{
    // An insert into the food table since the step was taken moves foods:
    // the rows put back are pointed at their own foods again.
    list_.RelocateEntries(session_.foodTable);
    list_.selectedRow = 0;
    // Before an open, the history starts again: back there, the list is as
    // saved if it was so when the file was opened.
    list_.listSaved = stack_.isClean() || (stack_.index() == 0 && savedBeforeOpen_);
    emit listChanged();
}

void FoodListModel::Undo()
{
    if (!stack_.canUndo())
        return;
    stack_.undo();
    AfterHistoryStep();
}

void FoodListModel::Redo()
{
    if (!stack_.canRedo())
        return;
    stack_.redo();
    AfterHistoryStep();
}

void FoodListModel::AddRow(FoodListEntry entry)
{
    const bool hadBlankRow = list_.blankRowBelow;
    const QString text = Named("Add", entry);
    Push(new ListCommand(
        text, [this, entry] { OpAppend(entry); }, [this, hadBlankRow] { OpRemove(list_.Count(), hadBlankRow); }));
}

void FoodListModel::ChangeRow(int row, FoodListEntry entry)
{
    const FoodListEntry before = list_.Entry(row);
    Push(new ListCommand(
        Named("Change", before), [this, row, entry] { OpReplace(row, entry); },
        [this, row, before] { OpReplace(row, before); }));
}

void FoodListModel::DeleteRow(int row)
{
    const FoodListEntry gone = list_.Entry(row);
    const bool saved = list_.listSaved;
    Push(new ListCommand(
        Named("Delete", gone), [this, row] { OpRemove(row, list_.blankRowBelow); },
        [this, row, gone] { OpInsert(row, gone); }),
         saved);
}

void FoodListModel::ClearList(const QString& file)
{
    std::vector<FoodListEntry> before = list_.Entries();
    const bool hadBlankRow = list_.blankRowBelow;
    list_.selectedRow = 0;
    Push(new ListCommand(
        QStringLiteral("Clear List"),
        [this, file] {
            if (!file.isEmpty())
                emit listFileStepped({});
            OpAssign({}, false);
        },
        [this, before = std::move(before), hadBlankRow, file] {
            if (!file.isEmpty())
                emit listFileStepped(file);
            OpAssign(before, hadBlankRow);
        }));
}

void FoodListModel::OpenList(std::vector<FoodListEntry> rows, const QString& name)
{
    savedBeforeOpen_ = list_.listSaved;
    stack_.clear();
    std::vector<FoodListEntry> before = list_.Entries();
    const bool hadBlankRow = list_.blankRowBelow;
    const bool blankAfter = !rows.empty();
    list_.selectedRow = 0;
    auto opened = std::make_shared<bool>(false);
    Push(new ListCommand(
        QStringLiteral("Open ") + name,
        [this, rows = std::move(rows), blankAfter, opened] {
            // The first time, the file's profile is already in place.
            if (*opened)
                emit openStepping(false);
            *opened = true;
            OpAssign(rows, blankAfter);
        },
        [this, before = std::move(before), hadBlankRow] {
            emit openStepping(true);
            OpAssign(before, hadBlankRow);
        }),
         true);
    stack_.setClean();
}

void FoodListModel::MarkSaved()
{
    list_.listSaved = true;
    stack_.setClean();
}

void FoodListModel::ForgetHistory()
{
    savedBeforeOpen_ = false;
    stack_.clear();
    if (!list_.listSaved)
        stack_.resetClean();
}

}  // namespace pw

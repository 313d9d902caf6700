#include "dialogs/views/DatabaseCommands.h"

#include <QWidget>

#include "core/views/ErrorGuard.h"
#include "core/views/Seams.h"
#include "core/views/Widgets.h"
#include "dialogs/views/AddFoodDialog.h"
#include "dialogs/views/CopyFavoritesDialog.h"
#include "dialogs/views/SaveDishDialog.h"
#include "fooddb/FoodEditing.h"
#include "foodlist/FoodSession.h"

namespace pw {

DatabaseCommands::DatabaseCommands(FoodSession& session, Seams& seams, ErrorGuard& guard, QWidget& window)
    : QObject(&window), session_(session), seams_(seams), guard_(guard), window_(window)
{
}

void DatabaseCommands::FoodTableChanged()
{
    RebuildChooser();
    emit chooserResetWanted();
}

void DatabaseCommands::RebuildChooser()
{
    // An insert or a delete moves foods: each list row is pointed at its own
    // food again before the chooser lists the table anew.
    session_.foodList.RelocateEntries(session_.foodTable);
    emit foodsMoved();
}

bool DatabaseCommands::RefusedForFullTable()
{
    if (!session_.foodTable.IsFull())
        return false;
    TellDatabaseFull(seams_.prompts);
    return true;
}

void DatabaseCommands::AddCustomItem()
{
    if (RefusedForFullTable())
        return;
    if (!frmAdd) {
        frmAdd = new AddFoodDialog(session_, seams_, &guard_, &window_);
        connect(frmAdd, &FoodTableDialog::foodTableChanged, this, &DatabaseCommands::FoodTableChanged);
    }
    frmAdd->open();
}

void DatabaseCommands::SaveAsDish()
{
    if (!frmSaveList) {
        frmSaveList = new SaveDishDialog(session_, seams_, &guard_, &window_);
        connect(frmSaveList, &SaveDishDialog::dishSaved, this, [this](bool clearList) {
            if (clearList)
                emit clearListRequested();
            RebuildChooser();
            emit dishSaved();
            emit chooserResetWanted();
        });
    }
    frmSaveList->open();
}

void DatabaseCommands::CopyToFavorites()
{
    if (RefusedForFullTable())
        return;
    if (!frmCopy) {
        frmCopy = new CopyFavoritesDialog(session_, seams_, &guard_, &window_);
        connect(frmCopy, &FoodTableDialog::foodTableChanged, this, &DatabaseCommands::FoodTableChanged);
    }
    const FoodTable& table = session_.foodTable;
    const int food = session_.chooser.currentFood;
    frmCopy->SetChosenFood({QString::fromLatin1(table.Subgroup(food)), QString::fromLatin1(table.Description(food)),
                            QString::fromLatin1(table.Measure(food))});
    frmCopy->open();
}

void DatabaseCommands::DeleteFromDatabase()
{
    const std::string title = texts::kTitleDeleteFromDatabase;
    // The chosen description with all its measures, the run the measure
    // tier lists.
    const int first = session_.tierMap.Get(0, 3);
    const int n = session_.chooser.measureCount;
    if (n < 1)
        return;
    const FoodList& list = session_.foodList;
    for (int row = 1; row <= list.Count(); ++row) {
        const int index = list.Entry(row).foodIndex;
        if (index >= first && index <= first + n - 1) {
            seams_.prompts.Message(std::string(texts::kDeleteFoodInUse), title, MsgIcon::Exclamation);
            emit deleteRefused();
            return;
        }
    }
    const FoodTable& table = session_.foodTable;
    const std::string question =
        DeleteFoodQuestion(table.Group(first), table.Subgroup(first), table.Description(first));
    if (seams_.prompts.Message(question, title, MsgIcon::Question, MsgButtons::YesNo) != MsgResult::Yes) {
        seams_.prompts.Message(std::string(texts::kDeletionCanceled), title, MsgIcon::Information);
        return;
    }
    DeleteFoods(session_.foodTable, first, n);
    emit chooserResetWanted();
    seams_.prompts.Message(std::string(texts::kItemDeleted), title, MsgIcon::Information);
    RebuildChooser();
}

}  // namespace pw

#pragma once
// The Database menu in one place: adding a custom food, saving the list as a
// dish, copying the chosen food to Favorites and deleting it from the table.
// It owns the three dialogs (created once, kept), refuses a full table
// before a dialog opens, and every change of the food table ends in one
// step that asks for the chooser to be rebuilt. It reads the chosen food
// from the chooser's state and asks for the rest by signals.
#include <QObject>

class QWidget;

namespace pw {

class AddFoodDialog;
class CopyFavoritesDialog;
class ErrorGuard;
class SaveDishDialog;
struct Seams;
struct FoodSession;

class DatabaseCommands : public QObject {
    Q_OBJECT
public:
    DatabaseCommands(FoodSession& session, Seams& seams, ErrorGuard& guard, QWidget& window);

    void AddCustomItem();
    void SaveAsDish();
    void CopyToFavorites();
    // The chosen description with all its measures, unless the list uses one.
    void DeleteFromDatabase();

signals:
    // The dish is saved and the user asked to clear the list it came from.
    void clearListRequested();
    // The dish is saved: the list is not saved as a dish again as it is.
    void dishSaved();
    // The chosen food is in the list and was not deleted.
    void deleteRefused();
    // The table's foods moved: the chooser lists them anew.
    void foodsMoved();
    // The chooser back to nothing chosen.
    void chooserResetWanted();

private:
    // After every change of the table: the list's rows re-found and the
    // chooser rebuilt from it (and, but for the delete, reset at once).
    void FoodTableChanged();
    void RebuildChooser();
    // A full table: the capacity message, and true.
    bool RefusedForFullTable();

    FoodSession& session_;
    Seams& seams_;
    ErrorGuard& guard_;
    QWidget& window_;
    // Made at their first opening, children of the window named "frmAdd",
    // "frmSaveList" and "frmCopy".
    AddFoodDialog* frmAdd = nullptr;
    SaveDishDialog* frmSaveList = nullptr;
    CopyFavoritesDialog* frmCopy = nullptr;
};

}  // namespace pw

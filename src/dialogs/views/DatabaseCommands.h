#pragma once
// The Database menu in one place: adding a custom food, saving the list as a
// dish, copying the chosen food to Favorites and deleting it from the table.
// It owns the three dialogs (created once, kept), refuses a full table
// before a dialog opens, and every change of the food table ends in one
// step that rebuilds the chooser. It knows the chooser only through the
// link the main window gives it.
#include <QObject>
#include <QString>
#include <functional>

class QWidget;

namespace pw {

class AddFoodDialog;
class CopyFavoritesDialog;
class ErrorGuard;
class SaveDishDialog;
struct Seams;
struct FoodSession;

// What the commands ask of the food chooser.
struct ChooserLink {
    // The names in the four tiers: group, subgroup, description, measure.
    std::function<QString(int tier)> tierText;
    // How many measures the measure tier lists for the chosen description.
    std::function<int()> measureCount;
    std::function<void()> disableTiers;
    std::function<void()> rebuildTierMap;
};

class DatabaseCommands : public QObject {
    Q_OBJECT
public:
    DatabaseCommands(FoodSession& session, Seams& seams, ErrorGuard& guard, ChooserLink chooser, QWidget& window);

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
    ChooserLink chooser_;
    QWidget& window_;
    // Made at their first opening, children of the window named "frmAdd",
    // "frmSaveList" and "frmCopy".
    AddFoodDialog* frmAdd = nullptr;
    SaveDishDialog* frmSaveList = nullptr;
    CopyFavoritesDialog* frmCopy = nullptr;
};

}  // namespace pw

#pragma once
// The food-list tab of the main window: the four-tier food chooser, the
// quantity box and the nutrient panel of the chosen food.
#include <QWidget>
#include <array>
#include <string>
#include <vector>

#include "foodlist/FoodList.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace pw {

class ErrorGuard;

struct Seams;
struct FoodSession;

class FoodChooserPage : public QWidget {
    Q_OBJECT
signals:
    // "Add to List"/"Change" and "Delete from List": the list acts on them.
    void acceptRequested();
    void deleteRequested();
    // "Search": the search dialog is wanted.
    void searchRequested();
    // "Help": the main window opens the food-list topic.
    void helpRequested();
    // Whether the chosen food can be copied to Favorites, and deleted from
    // the food table, changed.
    void copyToFavoritesAvailable(bool available);
    void deleteFromDatabaseAvailable(bool available);

public:
    // guard: where run-time errors of this page's handlers go (none for a
    // page built on its own, whose errors reach its caller). The page shows
    // amounts until SetUnitCaptions asks for percents of DV.
    FoodChooserPage(FoodSession& session, Seams& seams, ErrorGuard* guard = nullptr, QWidget* parent = nullptr);

    // The group list and TierMap column 0, from the food table.
    void RebuildTierMap();
    // The 17 quantity choices, " 1" selected.
    void FillQuantityList();
    // The view changed: the nutrient panel's unit captions as a change of
    // view sets them, "%DV" on all eight or the amount units, and the values
    // shown from now on.
    void SetUnitCaptions(bool byDV);

    // Starts choosing a food to add to the list.
    void NewItem();
    // Nothing chosen: every tier, the quantity and the panel disabled; a
    // loaded row stays loaded.
    void DisableTiers();
    // Selects the food at a FoodTable index in the four tiers.
    void RecreateTiers(int index);
    // A food found by the search dialog: shown in the tiers without a
    // measure, which the user picks next.
    void ShowFoundFood(int index);
    // A food taken from a ranking of foods: a new item, handed over as a
    // found food is, with its own measure chosen again and, when given, the
    // quantity in the box; the box takes the keyboard, so Enter adds it.
    void TakeRankedFood(int index, const QString& quantity);

    // What the list asks of the chooser. The texts of the current choice
    // as the model keeps them (Latin-1), the quantity as typed.
    struct ChoiceTexts {
        std::string quantity, group, subgroup, description, measure;
    };
    ChoiceTexts CurrentChoice() const;
    // A row is loaded, so "Delete from List" applies to it.
    bool RowLoaded() const;
    // No row loaded (it changed or is gone, or no row was clicked): nothing
    // chosen, no command but New Item.
    void ForgetRow();
    // A row of the list to look at or change: its food in the tiers, its
    // quantity as typed and its stored values (amounts, or percents).
    void LoadListEntry(const FoodListEntry& entry, bool byUnits);
    // Scales the food's values by the current quantity into the chooser
    // state and shows amounts or percents as the view asks.
    void DisplayFoodNutrients(int index);
    // Parses the quantity box and enables or refuses it.
    void ProcessData();

    // True while a food's values are shown.
    bool FoodChosen() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // A choice at a tier: builds the next tier's list and resets everything
    // below it; a measure sets the chosen food and shows its nutrients.
    void ProcessTier0();
    void ProcessTier1();
    void ProcessTier2();
    void ProcessTier3();
    void BuildControls();
    ChooserStage& Stage();
    // The one routine that shows the stage: every control's enabled state
    // and the availability of the commands on the chosen food.
    void ShowStage();
    void ClearValues();
    void SetGroupList(const std::vector<std::string>& groups);
    // Refills a tier's combo from the run chosen at the tier above, with no
    // entry selected.
    void FillTier(int tier, int position);
    // The tier opened and filled on the choice of the tier above, or closed
    // and emptied while that has none.
    void FollowChoice(int tier);
    // The measure tier, the quantity and the panel back to nothing chosen.
    void ResetMeasureTier();
    void ProcessTier(int tier);
    void AskAboutEmptyFavorites();
    void btnNewItem_Click();
    void btnSearch_Click();
    void comQuantity_Click();
    void comQuantity_KeyUp();
    QComboBox* TierCombo(int tier) const;

    ErrorGuard* const guard;  // where the handlers' run-time errors go
    FoodSession& session_;
    Seams& seams_;
    bool byUnits_ = true;  // amounts, not percents of DV

    // The controls; each one's objectName is its member name (the arrays'
    // are "labTier0", "labNutrVal0", ...).
    QComboBox* comTier0 = nullptr;
    QComboBox* comTier1 = nullptr;
    QComboBox* comTier2 = nullptr;
    QComboBox* comTier3 = nullptr;
    QComboBox* comQuantity = nullptr;
    std::array<QLabel*, 4> labTier{};
    QLabel* labOf = nullptr;
    std::array<QLabel*, 8> labNutr{};
    std::array<QLabel*, 8> labNutrVal{};
    std::array<QLabel*, 8> labNutrUnit{};
    QPushButton* btnNewItem = nullptr;
    QPushButton* btnSearch = nullptr;
    QPushButton* btnAcceptItem = nullptr;
    QPushButton* btnDeleteItem = nullptr;
    QPushButton* btnTab2Help = nullptr;
};

}  // namespace pw

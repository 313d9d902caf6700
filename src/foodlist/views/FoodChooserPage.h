#pragma once
// The food-list tab of the main window: the four-tier food chooser, the
// quantity box and the nutrient panel of the chosen food.
#include <QWidget>
#include <array>
#include <functional>
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
    // page built on its own, whose errors reach its caller). viewByUnits
    // tells amounts (true, and when not given) from percents of DV.
    FoodChooserPage(FoodSession& session, Seams& seams, ErrorGuard* guard = nullptr,
                 std::function<bool()> viewByUnits = {}, QWidget* parent = nullptr);

    ErrorGuard* const guard;

    // The group list and TierMap column 0, from the food table.
    void RebuildTierMap();
    // The 17 quantity choices, " 1" selected.
    void FillQuantityList();
    // Unit captions of the nutrient panel as a change of view sets them:
    // "%DV" on all eight, or the amount units.
    void SetUnitCaptions(bool byDV);

    // A choice at a tier: builds the next tier's list and resets everything
    // below it; a measure sets the chosen food and shows its nutrients.
    void ProcessTier0();
    void ProcessTier1();
    void ProcessTier2();
    void ProcessTier3();
    // Starts choosing a food to add to the list.
    void NewItem();
    // Nothing chosen: every tier, the quantity and the panel disabled.
    void DisableTiers();
    // Every tier enabled, for changing a row of the list.
    void EnableTiers();
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
    // After "Add to List"/"Change": nothing chosen, no command but New Item.
    void ResetAfterAccept();
    // The loaded row is gone (deleted, or the list cleared).
    void ForgetRow();
    // A click on no row of the list: nothing chosen and no values shown.
    void ShowNoRow();
    // A row of the list to look at or change: its food in the tiers, its
    // quantity as typed and its stored values (amounts, or percents).
    void LoadListEntry(const FoodListEntry& entry, bool byUnits);
    void EnableItemInfo();
    void DisableItemInfo();
    void EnableUnits();
    void DisableUnits();
    // Scales the food's values by the current quantity into the chooser
    // state and shows amounts or percents as the view asks.
    void DisplayFoodNutrients(int index);
    // Parses the quantity box and enables or refuses it.
    void ProcessData();

    // True while a food is chosen (its nutrient values are enabled).
    bool FoodChosen() const;
    // The text shown at a tier (0 group .. 3 measure), and how many measures
    // the measure tier lists.
    QString TierText(int tier) const;
    int MeasureCount() const;


protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildControls();
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
    bool ViewByUnits() const;
    QComboBox* TierCombo(int tier) const;

    FoodSession& session_;
    Seams& seams_;
    std::function<bool()> viewByUnits_;

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

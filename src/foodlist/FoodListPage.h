#pragma once
// The food-list tab of the main window: the four-tier food chooser, the
// quantity box and the nutrient panel of the chosen food.
#include <QWidget>
#include <array>
#include <string>
#include <vector>

class QComboBox;
class QLabel;
class QPushButton;

namespace pw {

class FoodListPage : public QWidget {
    Q_OBJECT
public:
    explicit FoodListPage(QWidget* parent = nullptr);

    // The group list, one entry per group in table order.
    void SetGroupList(const std::vector<std::string>& groups);
    // The 17 quantity choices, " 1" selected.
    void FillQuantityList();
    // Unit captions of the nutrient panel for the view: "%DV" on all eight,
    // or the amount units.
    void SetUnitCaptions(bool byDV);
    // Nothing chosen: every tier, the quantity and the panel disabled.
    void DisableTiers();

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

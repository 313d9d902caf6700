#pragma once
// The custom food dialog: a group, a subgroup chosen or typed, a
// description, a measure and seven nutrient values, each typed in units or
// as percent of a fixed daily value; Add inserts the food into the table in
// order. Created once, hidden rather than destroyed, and empty again every
// time it is shown.
#include "dialogs/views/FoodTableDialog.h"
#include <array>
#include <cstdint>

#include "fooddb/FoodEditing.h"

class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace pw {

class ErrorGuard;
struct Seams;
struct FoodSession;

class AddFoodDialog : public FoodTableDialog {
    Q_OBJECT
public:
    AddFoodDialog(FoodSession& session, Seams& seams, ErrorGuard* guard, QWidget* parent = nullptr);

    // Bit 0 description, bit 1 measure, bits 2..8 the nutrient boxes that
    // hold a number; Add is offered at kAllFieldsFilled.
    std::int32_t FieldsFilled() const { return fieldsFilled_.mask; }

private:
    void BuildControls();
    void Form_Activate() override;
    // Everything below the group disabled and emptied.
    void DisableGUI();
    void EnableGUI();
    void SetToUnits();
    void SetToDV();
    void EnableAdd();
    void comPrimary_Click();
    void comSecondary_Change();
    void txtDescription_KeyUp();
    void txtMeasure_KeyUp();
    void txtNutrVal_KeyUp(int row);
    void optUnits_Click(int row);
    void optDV_Click(int row);
    void btnAdd_Click();

    pw::FieldsFilled fieldsFilled_;

    QLabel* labPrimary = nullptr;
    QComboBox* comPrimary = nullptr;
    QLabel* labSecondary = nullptr;
    QComboBox* comSecondary = nullptr;
    QLabel* labDescription = nullptr;
    QLineEdit* txtDescription = nullptr;
    QLabel* labUnitOfMeasure = nullptr;
    QLineEdit* txtMeasure = nullptr;
    // One of each per nutrient row: protein, carbohydrates, fats,
    // cholesterol, fiber, calcium, sodium.
    std::array<QLabel*, kCustomNutrients> labNutrient{};
    std::array<QLineEdit*, kCustomNutrients> txtNutrVal{};
    std::array<QLabel*, kCustomNutrients> labMeasureCaption{};
    std::array<QFrame*, kCustomNutrients> frameUnits{};
    std::array<QRadioButton*, kCustomNutrients> optUnits{};
    std::array<QRadioButton*, kCustomNutrients> optDV{};
    QLabel* labNote = nullptr;
    QLabel* labCalories = nullptr;
    QLineEdit* txtCalories = nullptr;  // the calories Add computed
    QPushButton* btnAdd = nullptr;
    QPushButton* btnCancel = nullptr;
    QPushButton* btnHelp = nullptr;
};

}  // namespace pw

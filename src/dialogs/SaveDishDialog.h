#pragma once
// Saves the whole food list as one new food of the Favorites group, a dish
// whose values are the list's totals. Created once, hidden rather than
// destroyed, and empty again every time it is shown.
#include "dialogs/FoodTableDialog.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace pw {

class ErrorGuard;
class MainWindow;
struct Seams;
struct Session;

class SaveDishDialog : public FoodTableDialog {
    Q_OBJECT
public:
    SaveDishDialog(Session& session, Seams& seams, MainWindow& main, QWidget* parent = nullptr);

    QLabel* labFoodGroupLabel = nullptr;
    QLabel* labFoodGroup = nullptr;
    QLabel* labChooseSubGroupLabel = nullptr;
    QComboBox* comSubgroup = nullptr;
    QLabel* labDescriptionLabel = nullptr;
    QLineEdit* txtDescription = nullptr;
    QLabel* labUnitOfMeasureLabel = nullptr;
    QLineEdit* txtMeasure = nullptr;
    QPushButton* btnSaveList = nullptr;
    QPushButton* btnCancel = nullptr;
    QPushButton* btnHelp = nullptr;

private:
    void BuildControls();
    void Form_Activate() override;
    // Save is offered while subgroup, description and measure hold text.
    void EnableSave();
    void btnSaveList_Click();

};

}  // namespace pw

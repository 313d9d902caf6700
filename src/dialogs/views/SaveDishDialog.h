#pragma once
// Saves the whole food list as one new food of the Favorites group, a dish
// whose values are the list's totals. Created once, hidden rather than
// destroyed, and empty again every time it is shown.
#include "dialogs/views/FavoritesDialog.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace pw {

class ErrorGuard;
struct Seams;
struct FoodSession;

class SaveDishDialog : public FavoritesDialog {
    Q_OBJECT
public:
    SaveDishDialog(FoodSession& session, Seams& seams, ErrorGuard* guard, QWidget* parent = nullptr);

signals:
    // The dish is in the table; clearList when the user asked to clear the
    // list it was made from.
    void dishSaved(bool clearList);

private:
    void BuildControls();
    void Form_Activate() override;
    // Save is offered while subgroup, description and measure hold text.
    void EnableSave();
    void btnSaveList_Click();

    QLineEdit* txtMeasure = nullptr;
    QPushButton* btnSaveList = nullptr;
};

}  // namespace pw

#pragma once
// The two dialogs that put a food into the Favorites group: the group shown
// fixed, a subgroup chosen or typed, a description, a unit of measure, and
// one action button beside Cancel and Help.
#include "dialogs/views/FoodTableDialog.h"

class QLineEdit;

namespace pw {

class FavoritesDialog : public FoodTableDialog {
    Q_OBJECT
protected:
    using FoodTableDialog::FoodTableDialog;

    // Creates the shared controls, lays out the form with the dialog's own
    // measure field and action button, and wires Cancel and Help.
    void BuildFavoritesForm(const char* subgroupTip, const char* descriptionTip, const char* measureCaption,
                            QWidget* measureField, QPushButton* action);

    // The boxes each dialog fills and reads its own way.
    QComboBox* SubgroupBox() const { return comSubgroup; }
    QLineEdit* DescriptionBox() const { return txtDescription; }

private:
    QLabel* labFoodGroupLabel = nullptr;
    QLabel* labFoodGroup = nullptr;
    QLabel* labChooseSubGroupLabel = nullptr;
    QComboBox* comSubgroup = nullptr;
    QLabel* labDescriptionLabel = nullptr;
    QLineEdit* txtDescription = nullptr;
    QLabel* labUnitOfMeasureLabel = nullptr;
    QPushButton* btnCancel = nullptr;
    QPushButton* btnHelp = nullptr;
};

}  // namespace pw

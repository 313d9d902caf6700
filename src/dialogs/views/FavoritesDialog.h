#pragma once
// The two dialogs that put a food into the Favorites group: the group shown
// fixed, a subgroup chosen or typed, a description, a unit of measure, and
// one action button beside Cancel and Help.
#include "dialogs/views/FoodTableDialog.h"

class QLineEdit;

namespace pw {

class FavoritesDialog : public FoodTableDialog {
    Q_OBJECT
public:
    QLabel* labFoodGroupLabel = nullptr;
    QLabel* labFoodGroup = nullptr;
    QLabel* labChooseSubGroupLabel = nullptr;
    QComboBox* comSubgroup = nullptr;
    QLabel* labDescriptionLabel = nullptr;
    QLineEdit* txtDescription = nullptr;
    QLabel* labUnitOfMeasureLabel = nullptr;
    QPushButton* btnCancel = nullptr;
    QPushButton* btnHelp = nullptr;

protected:
    using FoodTableDialog::FoodTableDialog;

    // Creates the shared controls and lays out the form with the dialog's
    // own measure field and action button.
    void BuildFavoritesForm(const char* subgroupTip, const char* descriptionTip, const char* measureCaption,
                            QWidget* measureField, QPushButton* action);
};

}  // namespace pw

#pragma once
// Copies the food chosen in the chooser into the Favorites group, under a
// subgroup and description of the user's choice and with its own measure.
// Created once, hidden rather than destroyed, and filled from the chooser
// every time it is shown.
#include <QString>
#include <utility>

#include "dialogs/views/FavoritesDialog.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace pw {

class ErrorGuard;
struct Seams;
struct FoodSession;

class CopyFavoritesDialog : public FavoritesDialog {
    Q_OBJECT
public:
    CopyFavoritesDialog(FoodSession& session, Seams& seams, ErrorGuard* guard, QWidget* parent = nullptr);

    // The food to copy as the chooser names it; set before each opening.
    struct ChosenFood {
        QString subgroup;
        QString description;
        QString measure;
    };
    void SetChosenFood(ChosenFood food) { chosen_ = std::move(food); }

private:
    void BuildControls();
    void Form_Activate() override;
    // Copy is offered while subgroup and description hold text.
    void EnableCopy();
    void btnCopy_Click();

    ChosenFood chosen_;
    QLabel* labMeasure = nullptr;  // the chosen food's measure, kept
    QPushButton* btnCopy = nullptr;
};

}  // namespace pw

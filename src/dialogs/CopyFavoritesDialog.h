#pragma once
// Copies the food chosen in the chooser into the Favorites group, under a
// subgroup and description of the user's choice and with its own measure.
// Created once, hidden rather than destroyed, and filled from the chooser
// every time it is shown.
#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace pw {

class ErrorGuard;
class MainWindow;
struct Seams;
struct Session;

class CopyFavoritesDialog : public QDialog {
    Q_OBJECT
public:
    // Where run-time errors of the handlers go; the main window hands on
    // its own.
    ErrorGuard* guard = nullptr;

    CopyFavoritesDialog(Session& session, Seams& seams, MainWindow& main, QWidget* parent = nullptr);

    QLabel* labFoodGroupLabel = nullptr;
    QLabel* labFoodGroup = nullptr;
    QLabel* labChooseSubGroupLabel = nullptr;
    QComboBox* comSubgroup = nullptr;
    QLabel* labDescriptionLabel = nullptr;
    QLineEdit* txtDescription = nullptr;
    QLabel* labUnitOfMeasureLabel = nullptr;
    QLabel* labMeasure = nullptr;  // the chosen food's measure, kept
    QPushButton* btnCopy = nullptr;
    QPushButton* btnCancel = nullptr;
    QPushButton* btnHelp = nullptr;

public slots:
    // Closing the window or Escape leave as Cancel does.
    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void BuildControls();
    void Form_Activate();
    // Copy is offered while subgroup and description hold text.
    void EnableCopy();
    void btnCopy_Click();
    void btnCancel_Click();
    void btnHelp_Click();

    Session& session_;
    Seams& seams_;
    MainWindow& main_;
};

}  // namespace pw

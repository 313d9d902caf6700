#pragma once
// Saves the whole food list as one new food of the Favorites group, a dish
// whose values are the list's totals. Created once, hidden rather than
// destroyed, and empty again every time it is shown.
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

class SaveDishDialog : public QDialog {
    Q_OBJECT
public:
    // Where run-time errors of the handlers go; the main window hands on
    // its own.
    ErrorGuard* guard = nullptr;

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

public slots:
    // Closing the window or Escape leave as Cancel does.
    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void BuildControls();
    void Form_Activate();
    // Save is offered while subgroup, description and measure hold text.
    void EnableSave();
    void btnSaveList_Click();
    void btnCancel_Click();
    void btnHelp_Click();

    Session& session_;
    Seams& seams_;
    MainWindow& main_;
};

}  // namespace pw

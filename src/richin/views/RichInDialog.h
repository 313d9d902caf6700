#pragma once
// The foods rich in a nutrient: the food table ranked by one nutrient, the
// foods that would bring the day up to its daily value, or the list's own
// foods by what each gave; the chosen food goes to the food chooser. Created
// once, hidden rather than destroyed, and reset every time it is shown.
#include <QDialog>
#include <QString>
#include <optional>

#include "fooddb/FoodTable.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QTableView;

namespace pw {

class ErrorGuard;
class RichInTableModel;
struct Seams;
struct FoodSession;

class RichInDialog : public QDialog {
    Q_OBJECT
public:
    RichInDialog(const FoodSession& session, Seams& seams, ErrorGuard* guard, QWidget* parent = nullptr);
    ~RichInDialog() override;

    ErrorGuard* const guard;

    // Before showing: the nutrient to open with (none: the one the day lacks
    // most), and whether the profile is complete, which gives the daily
    // values their use and the chooser a food.
    void PresetNutrient(std::optional<Nutrient> nutrient) { preset_ = nutrient; }
    void SetProfileComplete(bool complete) { profileComplete_ = complete; }

    // The rows the table lists, and the FoodTable index and quantity text
    // (empty outside the gap) of row k (0-based).
    int RowCount() const;
    int FoodIndexOfRow(int row) const;
    QString QuantityOfRow(int row) const;

    // Builds the table again from the controls' choices.
    void FillGrid();

signals:
    // A food taken into the chooser: its FoodTable index and the quantity to
    // put in the quantity box, empty to leave the box as it is.
    void foodChosen(int index, const QString& quantity);

public slots:
    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildControls();
    void Form_Activate();
    void comRichNutrient_Click();
    void UpdateControls();
    void btnRichChoose_Click();
    void btnRichCancel_Click();
    void btnRichHelp_Click();
    int CurrentRow() const;
    bool GapAvailable() const;

    const FoodSession& session_;
    Seams& seams_;
    std::optional<Nutrient> preset_;
    bool profileComplete_ = false;
    bool resetting_ = false;
    RichInTableModel* table_ = nullptr;

    QLabel* labRichNutrient = nullptr;
    QComboBox* comRichNutrient = nullptr;
    QLabel* labRichBasis = nullptr;
    QComboBox* comRichBasis = nullptr;
    QLabel* labRichGroup = nullptr;
    QComboBox* comRichGroup = nullptr;
    QRadioButton* optRichMost = nullptr;
    QRadioButton* optRichLeast = nullptr;
    QRadioButton* optRichAllFoods = nullptr;
    QRadioButton* optRichThisList = nullptr;
    QCheckBox* chkRichGap = nullptr;
    QLabel* labRichNote = nullptr;
    QTableView* gridRich = nullptr;
    QPushButton* btnRichChoose = nullptr;
    QPushButton* btnRichCancel = nullptr;
    QPushButton* btnRichHelp = nullptr;
    QButtonGroup* orderGroup_ = nullptr;
    QButtonGroup* viewGroup_ = nullptr;
};

}  // namespace pw

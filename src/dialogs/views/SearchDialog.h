#pragma once
// The search dialog: finds foods by a piece of text, lists them in a grid and
// hands the chosen one to the food chooser. Created once, hidden rather than
// destroyed, and empty again every time it is shown.
#include <cstdint>
#include <vector>

#include "dialogs/Search.h"
#include "core/views/Twips.h"
#include "dialogs/views/FoodTableDialog.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace pw {

class ErrorGuard;
struct Seams;
struct FoodSession;

class SearchDialog : public OnceDialog {
    Q_OBJECT
public:
    // guard: where run-time errors of the handlers go; the chooser that
    // opens the dialog hands on its own.
    SearchDialog(const FoodSession& session, Seams& seams, ErrorGuard* guard, QWidget* parent = nullptr);

    // Grid rows listed by the last search, and the row last moved to
    // (1-based, 0 when none).
    int ResultCount() const { return static_cast<int>(results_.size()); }
    int SelectedResult() const { return selectedResult_; }

signals:
    // Accept: the food at this FoodTable index, to be shown without a measure.
    void foodChosen(int index);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildControls();
    void ResetSearch();
    void InitResultsGrid();
    void btnSearch_Click();
    void gridSearch_RowColChange(int row);
    void btnAccept_Click();
    void btnNewSearch_Click();
    void btnCancel_Click() override;
    void txtSearch_KeyUp();
    void Form_Activate() override;
    void Form_Resize();
    int DpiX() const;
    int DpiY() const;

    const FoodSession& session_;
    std::vector<SearchResult> results_;  // grid row k shows results_[k - 1]
    int selectedResult_ = 0;
    TwipsLength width_;
    TwipsLength height_;

    QLabel* labEnterSearchTerm = nullptr;
    QLineEdit* txtSearch = nullptr;
    QPushButton* btnSearch = nullptr;
    QGroupBox* frameResults = nullptr;
    QTableWidget* gridSearch = nullptr;
    QLabel* labPrimaryLabel = nullptr;
    QLabel* labPrimary = nullptr;
    QLabel* labSecondaryLabel = nullptr;
    QLabel* labSecondary = nullptr;
    QLabel* labDescriptionLabel = nullptr;
    QLabel* labDescription = nullptr;
    QPushButton* btnNewSearch = nullptr;
    QPushButton* btnAccept = nullptr;
    QPushButton* btnCancel = nullptr;
    QPushButton* btnHelp = nullptr;
};

}  // namespace pw

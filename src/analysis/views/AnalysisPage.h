#pragma once
#include <QString>
#include <QWidget>
#include <array>
#include <vector>

#include "fooddb/FoodTable.h"
#include "analysis/AnalysisSession.h"

class QGroupBox;
class QLabel;
class QVBoxLayout;
class QPushButton;

namespace pw {

// The analysis tab: age, BMI and the daily values against the day's intake.
class AnalysisPage : public QWidget {
    Q_OBJECT
public:
    explicit AnalysisPage(AnalysisSession& session, QWidget* parent = nullptr);

    // Turns the session's validated profile into the daily values (kept in
    // the session) and the age, BMI and daily-value captions, enabling the
    // page. An overflow is a run-time error.
    void UpdateSummary();

    // The caption of labDailyIntake(i), i in 0..7 (Nutrient order).
    void SetDailyIntake(int i, const QString& text);

    // Empties the captions that describe the person (age, BMI and its
    // reading), as a list is opened.
    void ClearPerson();

    // Puts a chart under the nutrients, taking the frame's free height.
    void AddChart(QWidget* chart);
signals:
    // "Help": the main window opens the analysis topic.
    void helpRequested();
    // The foods rich in a nutrient: a click on its name (0..7, Nutrient
    // order), or the button (-1: no nutrient chosen).
    void richInRequested(int nutrient);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildControls();

    AnalysisSession& session_;

    // The controls; each one's objectName is its member name (the arrays'
    // labels are "labNutrient0", "labMDR0", ...).
    QGroupBox* frameAnalysis = nullptr;
    QLabel* labAge = nullptr;
    QLabel* labAgeResults = nullptr;
    QLabel* labAgeUnits = nullptr;
    QLabel* labBMILabel = nullptr;
    QLabel* labBMI = nullptr;
    QLabel* labBMIInterpretation = nullptr;
    std::array<QLabel*, 3> labHeader{};
    std::array<QLabel*, kShownNutrients> labNutrient{};
    std::array<QLabel*, kShownNutrients> labMDR{};
    std::array<QLabel*, kShownNutrients> labDailyIntake{};
    // The column headers repeated over the second group of nutrients.
    std::array<QLabel*, 3> secondHeader_{};
    QPushButton* btnTab3Help = nullptr;
    QPushButton* btnRichIn = nullptr;
    QVBoxLayout* frameLayout_ = nullptr;
};

}  // namespace pw

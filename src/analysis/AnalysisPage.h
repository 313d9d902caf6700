#pragma once
#include <QWidget>

#include "shell/Session.h"

namespace pw {

// The analysis tab: age, BMI and the daily values against the day's intake.
class AnalysisPage : public QWidget {
    Q_OBJECT
public:
    explicit AnalysisPage(Session& session, QWidget* parent = nullptr);
    void UpdateSummary();

private:
    Session& session_;
};

}  // namespace pw

#include "analysis/AnalysisPage.h"

namespace pw {

AnalysisPage::AnalysisPage(Session& session, QWidget* parent) : QWidget(parent), session_(session) {}

void AnalysisPage::UpdateSummary() {}

}  // namespace pw

#include "analysis/ProfilePage.h"

namespace pw {

ProfilePage::ProfilePage(Session& session, Seams& seams, QWidget* parent)
    : QWidget(parent), session_(session), seams_(seams)
{
}

void ProfilePage::ValidateTab1Data() { emit profileValidated(false); }
void ProfilePage::ReadDefaultPWP() {}
void ProfilePage::WriteDefaultPWP() {}

}  // namespace pw

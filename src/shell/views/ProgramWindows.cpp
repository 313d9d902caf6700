#include "shell/views/ProgramWindows.h"

#include "core/views/ErrorGuard.h"
#include "shell/Session.h"

namespace pw {

ProgramWindows::ProgramWindows(Session& session, Seams& seams, ErrorGuard& guard)
    : session_(session), seams_(seams), guard_(guard)
{
}

ProgramWindows::~ProgramWindows()
{
    main.reset();
    tip.reset();
    splash.reset();
}

SplashWindow& ProgramWindows::CreateSplash()
{
    if (!splash) {
        splash = std::make_unique<SplashWindow>(session_, seams_, guard_);
        connect(splash.get(), &SplashWindow::mainRequested, this,
                [this] { guard_.Run([this] { OnStartMain(); }); });
    }
    return *splash;
}

bool ProgramWindows::LoadSplash() { return CreateSplash().Form_Load(); }

void ProgramWindows::OnStartMain()
{
    if (!session_.settings.showTips) {
        ShowMainWindow();
        return;
    }
    tip = std::make_unique<TipWindow>(session_);
    connect(tip.get(), &TipWindow::finishedShowing, this, [this] { guard_.Run([this] { ShowMainWindow(); }); });
    tip->Form_Load();
    splash->hide();
    tip->show();
    tip->raise();
    tip->activateWindow();
}

void ProgramWindows::ShowMainWindow()
{
    if (main)
        return;
    main = std::make_unique<MainWindow>(session_, seams_, guard_);
    splash->hide();
    main->Form_Load();
    emit mainShown(main.get());
}

}  // namespace pw

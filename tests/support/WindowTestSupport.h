#pragma once
// A whole program on fakes: a temporary program folder, the session, the
// splash and the main window, started as the real program starts them.
#include <memory>
#include <string>
#include <vector>

#include "FakeSeams.h"
#include "TempFolder.h"
#include "shell/ErrorGuard.h"
#include "shell/MainWindow.h"
#include "shell/ProgramWindows.h"
#include "shell/Session.h"
#include "shell/SplashWindow.h"

namespace pw::test {

// pw.ini text that skips the first-run offer and the tips.
std::string QuietSettings(const std::string& extraLines = {});

class ProgramHarness {
public:
    ProgramHarness();
    ~ProgramHarness();

    // The splash's checks and reads; false when the program would end.
    bool LoadSplash();
    // Splash, then StartMain, the tip window when tips are on (closed as
    // its OK button closes it) and the main window's load; false when the
    // splash refused or a run-time error was reported.
    bool Start();

    TempFolder folder;
    FakeSeams fakes;
    Session session;
    ErrorGuard guard{session, fakes.prompts};
    ProgramWindows windows{session, fakes.seams, guard};
    std::unique_ptr<SplashWindow>& splash = windows.splash;
    std::unique_ptr<TipWindow>& tip = windows.tip;
    std::unique_ptr<MainWindow>& main = windows.main;
};

// Records, in order, the files renamed into (or written in) a folder.
class FolderWatch {
public:
    explicit FolderWatch(const std::string& folder);
    ~FolderWatch();
    // Names of the files written since the last call, in order.
    std::vector<std::string> Written();

private:
    int fd_ = -1;
};

}  // namespace pw::test

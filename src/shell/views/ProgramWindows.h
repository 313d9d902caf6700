#pragma once
// The windows of one run and the hand-over between them: the splash, then
// the tip of the day when tips are on, then the main window.
#include <QObject>
#include <memory>

#include "shell/views/MainWindow.h"
#include "shell/views/SplashWindow.h"
#include "shell/views/TipWindow.h"

namespace pw {

class ErrorGuard;
struct Seams;
struct Session;

class ProgramWindows : public QObject {
    Q_OBJECT
public:
    ProgramWindows(Session& session, Seams& seams, ErrorGuard& guard);
    ~ProgramWindows() override;

    // The splash window, created once.
    SplashWindow& CreateSplash();
    // The splash's start-up checks and reads; false when the program ends.
    bool LoadSplash();

    std::unique_ptr<SplashWindow> splash;
    std::unique_ptr<TipWindow> tip;
    std::unique_ptr<MainWindow> main;

signals:
    // The main window has been created and loaded.
    void mainShown(MainWindow* window);

private:
    void OnStartMain();
    void ShowMainWindow();

    Session& session_;
    Seams& seams_;
    ErrorGuard& guard_;
};

}  // namespace pw

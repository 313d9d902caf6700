#include "shell/AppRunner.h"

#include <QScreen>
#include <QSocketNotifier>
#include <QTimer>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

#include "printing/ReportPrinter.h"
#include "shell/CommandLine.h"
#include "shell/ErrorGuard.h"
#include "shell/MainWindow.h"
#include "shell/ProgramWindows.h"
#include "shell/RealSeams.h"
#include "shell/Session.h"
#include "shell/SplashWindow.h"

namespace pw {

namespace {

// SIGTERM arrives on a socket so that Egress runs in the event loop, not in
// the signal handler.
int g_signalPipe[2] = {-1, -1};

void OnTerminate(int)
{
    const char byte = 1;
    [[maybe_unused]] auto written = ::write(g_signalPipe[0], &byte, 1);
}

}  // namespace

PlatewellApplication::PlatewellApplication(int& argc, char** argv) : QApplication(argc, argv) {}

bool PlatewellApplication::notify(QObject* receiver, QEvent* event)
{
    if (!guard_)
        return QApplication::notify(receiver, event);
    bool handled = false;
    guard_->Run([&] { handled = QApplication::notify(receiver, event); });
    return handled;
}

std::string ExecutableFolder() { return QCoreApplication::applicationDirPath().toStdString(); }

int RunPlatewell(int& argc, char** argv)
{
    // Reports made from the command line need no window and no display.
    CommandLineRequest request;
    if (const std::optional<int> status = RunWithoutWindow(argc, argv, request))
        return *status;

    PlatewellApplication app(argc, argv);
    app.setApplicationName(QStringLiteral("Platewell"));
    app.setQuitOnLastWindowClosed(false);  // the program ends in Egress

    Session session;
    session.programFolder = ExecutableFolder();
    MessageBoxPrompts prompts;
    SystemFileDialogs files;
    SystemHelpDisplay help(prompts);
    SystemClock clock;
    SystemPrinter printer;
    Seams seams{prompts, files, help, clock, printer};
    ErrorGuard guard(session, prompts);
    app.SetGuard(&guard);

    ProgramWindows windows(session, seams, guard);
    QObject::connect(&windows, &ProgramWindows::mainShown, &app, [&](MainWindow* w) { prompts.SetParent(w); });
    SplashWindow& splash = windows.CreateSplash();
    splash.adjustSize();
    if (QScreen* screen = QGuiApplication::primaryScreen())
        splash.move(screen->availableGeometry().center() - splash.rect().center());
    splash.show();
    if (!windows.LoadSplash())
        return 1;

    auto terminate = [&] {
        if (windows.main && !windows.main->EgressDone())
            guard.Run([&] { windows.main->Egress(); });
        else
            QCoreApplication::exit(0);
    };
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, g_signalPipe) == 0) {
        auto* notifier = new QSocketNotifier(g_signalPipe[1], QSocketNotifier::Read, &app);
        QObject::connect(notifier, &QSocketNotifier::activated, &app, [&] {
            char byte;
            [[maybe_unused]] auto got = ::read(g_signalPipe[1], &byte, 1);
            terminate();
        });
        struct sigaction action {};
        action.sa_handler = OnTerminate;
        sigemptyset(&action.sa_mask);
        action.sa_flags = SA_RESTART;
        sigaction(SIGTERM, &action, nullptr);
    }
    // The desktop session ending is the other way the program is terminated.
    QObject::connect(&app, &QGuiApplication::commitDataRequest, &app, [&](QSessionManager&) { terminate(); });

    splash.timerSplash->start();
    splash.setFocus();
    const int code = session.ended && guard.Failed() ? 1 : app.exec();
    app.SetGuard(nullptr);
    return guard.Failed() ? 1 : code;
}

}  // namespace pw

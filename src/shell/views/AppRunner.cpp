#include "shell/views/AppRunner.h"

#include <QDir>
#include <QFileInfo>
#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <QSocketNotifier>
#include <QTimer>
#include <csignal>
#include <cstdlib>
#include <sys/socket.h>
#include <unistd.h>

#include "analysis/ProfileFile.h"
#include "core/LineFile.h"
#include "core/Text.h"
#include "printing/views/ReportPrinter.h"
#include "shell/views/CommandLine.h"
#include "shell/views/DesktopIntegration.h"
#include "core/views/ErrorGuard.h"
#include "shell/views/MainWindow.h"
#include "shell/ProgramFolder.h"
#include "shell/ProgramLock.h"
#include "shell/views/ProgramWindows.h"
#include "shell/views/RealSeams.h"
#include "shell/Session.h"
#include "shell/views/SplashWindow.h"

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

std::string AlreadyRunningText(const std::string& folder)
{
    return "Platewell is already running from the folder" + std::string(kCrLf) + folder + kCrLf + kCrLf +
           "Use the window that is open, or close it before starting Platewell again.";
}

std::string OtherComputerText(const std::string& folder, const std::string& host)
{
    return "Platewell is in use on " + host + " from the folder" + kCrLf + folder + kCrLf + kCrLf +
           "If Platewell is not running there (the folder was copied from that computer), it can start here. "
           "If it is running there, the copy that ends last would write over the other's files." +
           kCrLf + kCrLf + "Start Platewell anyway?";
}

std::string CannotLockText(const std::string& folder, const std::string& reason)
{
    return "Platewell cannot lock its folder" + std::string(kCrLf) + folder + kCrLf + kCrLf + reason + kCrLf +
           kCrLf + "It does not start, so that two copies never write the same files.";
}

std::string CannotUseFolderText(const std::string& problem)
{
    return "Platewell cannot keep its files in" + std::string(kCrLf) + problem + kCrLf + kCrLf +
           "Make room, or make the folder writable, and start Platewell again.";
}

// Locks the program folder, asking about a lock written on another
// computer; false when the program must not start (the user was told).
bool LockFolder(ProgramLock& lock, const std::string& folder, Prompts& prompts)
{
    LockOutcome outcome = lock.Take(folder);
    if (outcome.kind == LockOutcome::Kind::HeldOnHost &&
        prompts.Message(OtherComputerText(folder, outcome.host), std::string("Platewell"), MsgIcon::Question,
                        MsgButtons::YesNo) == MsgResult::Yes)
        outcome = lock.Take(folder, true);
    switch (outcome.kind) {
    case LockOutcome::Kind::Taken: return true;
    case LockOutcome::Kind::HeldHere:
        prompts.Message(AlreadyRunningText(folder), std::string("Platewell"), MsgIcon::Exclamation);
        return false;
    case LockOutcome::Kind::HeldOnHost: return false;  // the user said No
    case LockOutcome::Kind::Failed:
        prompts.Message(CannotLockText(folder, outcome.reason), std::string("Platewell"), MsgIcon::Critical);
        return false;
    }
    return false;
}

}  // namespace

PlatewellApplication::PlatewellApplication(int& argc, char** argv) : QApplication(argc, argv) {}

namespace {

// Whether receiver is the modal window on top (the message that reports a
// run-time error) or belongs to it.
bool BelongsToModal(QObject* receiver)
{
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal)
        return false;
    for (QObject* o = receiver; o; o = o->parent()) {
        if (o == modal || o == modal->windowHandle())
            return true;
    }
    return false;
}

}  // namespace

bool PlatewellApplication::notify(QObject* receiver, QEvent* event)
{
    if (!guard_)
        return QApplication::notify(receiver, event);
    if (!guard_->Ended()) {
        bool handled = false;
        guard_->Run([&] { handled = QApplication::notify(receiver, event); });
        return handled;
    }
    // The program is ending (a run-time error is being reported, or the exit
    // has run): the windows still paint and the message on top still answers
    // its keys and buttons, but no timer starts anything new, and a second
    // error is not reported again.
    if (event->type() == QEvent::Timer && !BelongsToModal(receiver))
        return true;
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception&) {
        return true;
    }
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
    SetDesktopIdentity(app);

    Session session;
    std::string folderProblem;
    session.programFolder = ProgramFolder(ExecutableFolder(), &folderProblem);
    MessageBoxPrompts prompts;
    if (!folderProblem.empty()) {
        prompts.Message(CannotUseFolderText(folderProblem), std::string("Platewell"), MsgIcon::Critical);
        return 1;
    }

    // One program per folder: a second copy would write its files over the
    // first one's at exit. A lock whose owner has died is taken over.
    ProgramLock lock;
    if (!LockFolder(lock, session.programFolder, prompts))
        return 1;
    // Nothing else writes in this folder now: what an interrupted save left
    // behind can go.
    RemoveStaleTemporaries(session.programFolder, {kDataFileName, kSettingsFileName, kDefaultProfileName});

    SystemFileDialogs files;
    SystemHelpDisplay help(prompts);
    SystemClock clock;
    SystemPrinter printer;
    Seams seams{prompts, files, help, clock, printer};
    // Once the user has answered a run-time error the process ends at once,
    // whatever was waiting below the message.
    ErrorGuard guard(session.ended, prompts, [&lock] {
        lock.Release();
        std::_Exit(1);
    });
    app.SetGuard(&guard);

    ProgramWindows windows(session, seams, guard);
    QObject::connect(&windows, &ProgramWindows::mainShown, &app, [&](MainWindow* w) { prompts.SetParent(w); });
    // A document the program was started with (a double click in a file
    // manager) opens once the main window is up.
    const QString document =
        request.listFile.isEmpty() ? QString() : QDir::cleanPath(QFileInfo(request.listFile).absoluteFilePath());
    if (!document.isEmpty())
        QObject::connect(&windows, &ProgramWindows::mainShown, &app,
                         [&, document](MainWindow* w) { guard.Run([&] { w->OpenDocument(document); }); });
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

    splash.StartTimer();
    splash.setFocus();
    const int code = session.ended && guard.Failed() ? 1 : app.exec();
    app.SetGuard(nullptr);
    return guard.Failed() ? 1 : code;
}

}  // namespace pw

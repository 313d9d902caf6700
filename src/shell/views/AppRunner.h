#pragma once
// The life of the process: the application object, the splash, the hand-over
// to the main window, and the ways out (close box, Exit, SIGTERM, end of the
// desktop session).
#include <QApplication>
#include <memory>

namespace pw {

class ErrorGuard;

// An application whose event dispatch turns a run-time error escaping a
// handler into the program's fatal message, as the last line of defence.
class PlatewellApplication : public QApplication {
public:
    PlatewellApplication(int& argc, char** argv);
    void SetGuard(ErrorGuard* guard) { guard_ = guard; }
    bool notify(QObject* receiver, QEvent* event) override;

private:
    ErrorGuard* guard_ = nullptr;
};

// The folder of the executable.
std::string ExecutableFolder();

// Runs the program; returns the process's exit code.
int RunPlatewell(int& argc, char** argv);

}  // namespace pw

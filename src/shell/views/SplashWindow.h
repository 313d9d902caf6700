#pragma once
// The start-up window: shows the logo while it checks and reads data.dat and
// the settings, then hands over to the main window after two seconds, a click
// or a key.
#include <QWidget>

class QLabel;
class QTimer;
class QFrame;

namespace pw {

class ErrorGuard;
struct Seams;
struct Session;

inline constexpr int kSplashInterval = 2000;  // ms

class SplashWindow : public QWidget {
    Q_OBJECT
public:
    SplashWindow(Session& session, Seams& seams, ErrorGuard& guard, QWidget* parent = nullptr);

    // The start-up checks and reads. False when the program must end: the
    // message has been shown and nothing was written.
    bool Form_Load();
    // Leaves the splash (once); emits mainRequested.
    void StartMain();
    // Starts the two seconds after which the main window comes.
    void StartTimer();

signals:
    // Show the main window: the tip window comes first when tips are on.
    void mainRequested();

protected:
    void mousePressEvent(class QMouseEvent* event) override;
    void keyPressEvent(class QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // The controls; each one's objectName is its member name.
    QTimer* timerSplash = nullptr;
    QLabel* imgLogo = nullptr;
    QFrame* frame_ = nullptr;
    Session& session_;
    Seams& seams_;
    ErrorGuard& guard_;
    bool started_ = false;
};

}  // namespace pw

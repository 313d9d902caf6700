#include "shell/views/SplashWindow.h"

#include <QApplication>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

#include "core/LineFile.h"
#include "core/Text.h"
#include "fooddb/DataFile.h"
#include "core/views/ErrorGuard.h"
#include "shell/views/Logo.h"
#include "core/views/Seams.h"
#include "shell/Session.h"
#include "shell/StartupTexts.h"

namespace pw {

namespace {
const char* const kFilesCorrupt = texts::kFilesCorrupt;
const char* const kDatabaseCorrupted = texts::kDatabaseCorrupted;
const char* const kErrorTitle = texts::kStartupErrorTitle;
}  // namespace

SplashWindow::SplashWindow(Session& session, Seams& seams, ErrorGuard& guard, QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint), session_(session), seams_(seams), guard_(guard)
{
    setObjectName(QStringLiteral("frmSplash"));
    setWindowTitle(QStringLiteral("Platewell"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    frame_ = new QFrame(this);
    frame_->setFrameShape(QFrame::Box);
    frame_->setLineWidth(2);
    auto* frameLayout = new QVBoxLayout(frame_);
    frameLayout->setContentsMargins(2, 2, 2, 2);
    imgLogo = new QLabel(frame_);
    imgLogo->setTextFormat(Qt::PlainText);
    imgLogo->setObjectName(QStringLiteral("imgLogo"));
    imgLogo->setPixmap(PaintLogo(QSize(480, 200)));
    frameLayout->addWidget(imgLogo);
    layout->addWidget(frame_);
    imgLogo->installEventFilter(this);
    frame_->installEventFilter(this);
    setFocusPolicy(Qt::StrongFocus);

    timerSplash = new QTimer(this);
    timerSplash->setObjectName(QStringLiteral("timerSplash"));
    timerSplash->setSingleShot(true);
    timerSplash->setInterval(kSplashInterval);
    connect(timerSplash, &QTimer::timeout, this, [this] { StartMain(); });
}

bool SplashWindow::Form_Load()
{
    QCoreApplication::processEvents();
    session_.settings = Settings{};
    session_.tutorialPending = false;

    const std::string dataPath = FindFileNoCase(session_.programFolder, kDataFileName);
    if (dataPath.empty()) {
        seams_.prompts.Message(QString::fromLatin1(kFilesCorrupt), QString::fromLatin1(kErrorTitle),
                               MsgIcon::Critical);
        return false;
    }

    QApplication::setOverrideCursor(Qt::WaitCursor);
    HeaderResult header = HeaderResult::Ok;
    const bool read = guard_.Run([&] { header = LoadDatabaseHeader(ReadWholeFile(dataPath, kDataFileLimit), session_.foodTable); });
    if (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
    if (!read)
        return false;
    if (header == HeaderResult::ChecksumMismatch) {
        seams_.prompts.Message(QString::fromLatin1(kDatabaseCorrupted), QString::fromLatin1(kErrorTitle),
                               MsgIcon::Critical);
        return false;
    }

    return guard_.Run([&] { ReadSettings(session_.programFolder, session_.settings); });
}

void SplashWindow::StartMain()
{
    timerSplash->stop();
    if (started_)
        return;
    started_ = true;
    if (session_.settings.firstRun) {
        session_.tutorialPending = true;
        session_.settings.firstRun = false;
    }
    emit mainRequested();
}

void SplashWindow::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    StartMain();
}

void SplashWindow::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    StartMain();
}

bool SplashWindow::eventFilter(QObject* watched, QEvent* event)
{
    if ((watched == imgLogo || watched == frame_) && event->type() == QEvent::MouseButtonPress) {
        StartMain();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void SplashWindow::StartTimer() { timerSplash->start(); }

}  // namespace pw

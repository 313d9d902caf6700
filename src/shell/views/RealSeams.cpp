#include "shell/views/RealSeams.h"

#include "shell/views/HelpWindow.h"

#include <QApplication>
#include <QDate>
#include <QDesktopServices>
#include <QFileDialog>
#include <QTextBrowser>
#include <QFileInfo>
#include <QMessageBox>
#include <QUrl>

namespace pw {

namespace {

// "Platewell profiles (*.pwp)|*.pwp" -> "Platewell profiles (*.pwp)".
QString QtFilter(const QString& filter)
{
    QStringList parts = filter.split('|');
    QStringList out;
    for (int i = 0; i + 1 < parts.size(); i += 2)
        out << parts[i];
    return out.isEmpty() ? filter : out.join(";;");
}

QString StartPath(const FileDialogRequest& r)
{
    QDir dir(r.initialFolder);
    return r.proposedName.isEmpty() ? dir.path() : dir.filePath(r.proposedName);
}

QString WithDefaultExtension(QString path, const FileDialogRequest& r)
{
    if (!r.defaultExtension.isEmpty() && QFileInfo(path).suffix().isEmpty())
        path += r.defaultExtension;
    return path;
}

}  // namespace

MsgResult MessageBoxPrompts::Message(const QString& text, const QString& title, MsgIcon icon, MsgButtons buttons)
{
    // On top of a modal dialog when one is open, so the message is never
    // hidden behind the window that waits for it.
    QWidget* parent = QApplication::activeModalWidget();
    if (!parent)
        parent = parent_;
    QMessageBox box(parent);
    box.setWindowTitle(title);
    // Message texts break lines with CR LF; a label wants LF only. A message
    // may quote a file's texts or name: it is shown as it stands, never read
    // as markup, so nothing in a file is rendered, loaded or followed.
    QString shown = text;
    shown.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    box.setTextFormat(Qt::PlainText);
    box.setText(shown);
    switch (icon) {
    case MsgIcon::None: box.setIcon(QMessageBox::NoIcon); break;
    case MsgIcon::Information: box.setIcon(QMessageBox::Information); break;
    case MsgIcon::Question: box.setIcon(QMessageBox::Question); break;
    case MsgIcon::Exclamation: box.setIcon(QMessageBox::Warning); break;
    case MsgIcon::Critical: box.setIcon(QMessageBox::Critical); break;
    }
    if (buttons == MsgButtons::YesNo) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(QMessageBox::Yes);
        return box.exec() == QMessageBox::Yes ? MsgResult::Yes : MsgResult::No;
    }
    if (buttons == MsgButtons::RetryCancel) {
        box.setStandardButtons(QMessageBox::Retry | QMessageBox::Cancel);
        box.setDefaultButton(QMessageBox::Retry);
        box.setEscapeButton(QMessageBox::Cancel);
        return box.exec() == QMessageBox::Retry ? MsgResult::Retry : MsgResult::Cancel;
    }
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
    return MsgResult::Ok;
}

void MessageBoxPrompts::Beep() { QApplication::beep(); }

namespace {

std::optional<QString> RunFileDialog(const FileDialogRequest& r, QFileDialog::AcceptMode mode)
{
    QFileDialog dialog(QApplication::activeWindow(), QString(), StartPath(r), QtFilter(r.filter));
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptOpen && r.fileMustExist ? QFileDialog::ExistingFile
                                                                         : QFileDialog::AnyFile);
    if (!r.defaultExtension.isEmpty())
        dialog.setDefaultSuffix(r.defaultExtension.mid(1));
    if (!r.overwritePrompt)
        dialog.setOption(QFileDialog::DontConfirmOverwrite);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return WithDefaultExtension(dialog.selectedFiles().first(), r);
}

}  // namespace

std::optional<QString> SystemFileDialogs::OpenFile(const FileDialogRequest& r)
{
    return RunFileDialog(r, QFileDialog::AcceptOpen);
}

std::optional<QStringList> SystemFileDialogs::OpenFiles(const FileDialogRequest& r)
{
    QFileDialog dialog(QApplication::activeWindow(), QString(), StartPath(r), QtFilter(r.filter));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles();
}

std::optional<QString> SystemFileDialogs::ChooseFolder(const FileDialogRequest& r)
{
    QFileDialog dialog(QApplication::activeWindow(), QString(), r.initialFolder);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().first();
}

std::optional<QString> SystemFileDialogs::SaveFile(const FileDialogRequest& r)
{
    return RunFileDialog(r, QFileDialog::AcceptSave);
}

SystemHelpDisplay::SystemHelpDisplay(Prompts& prompts) : prompts_(prompts) {}

SystemHelpDisplay::~SystemHelpDisplay() = default;

void SystemHelpDisplay::ShowHelp(const QString& helpFile, int command, std::optional<int> context)
{
    if (!window_) {
        window_ = std::make_unique<HelpWindow>(prompts_);
        QObject::connect(window_.get(), &HelpWindow::webPageRequested, window_.get(),
                         [](const QUrl& url) { QDesktopServices::openUrl(url); });
    }
    const bool loaded = window_->LoadFile(helpFile);
    if (command == kHelpHelpOnHelp) {
        window_->ShowHelpOnHelp();  // built in when the file cannot be read
    } else if (!loaded) {
        prompts_.Message(QStringLiteral("The help file could not be opened:\r\n") + helpFile, QStringLiteral("Help"),
                         MsgIcon::Exclamation);
        return;
    } else if (command == kHelpIndex) {
        window_->ShowIndex();
    } else {
        window_->ShowTopic(context.value_or(0));
    }
    window_->show();
    window_->raise();
    window_->activateWindow();
}

bool SystemHelpDisplay::OpenWebPage(const QString& url) { return QDesktopServices::openUrl(QUrl(url)); }

int SystemClock::CurrentYear() const { return QDate::currentDate().year(); }

}  // namespace pw

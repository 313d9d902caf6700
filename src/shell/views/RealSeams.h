#pragma once
// The seams as the running program uses them: message boxes, the system's
// file dialogs and browser, the system clock.
#include <QWidget>
#include <QPointer>
#include <memory>

#include "core/views/Seams.h"

namespace pw {

class MessageBoxPrompts : public Prompts {
public:
    using Prompts::Message;
    MsgResult Message(const QString& text, const QString& title, MsgIcon icon, MsgButtons buttons) override;
    void Beep() override;
    // The window the message boxes are centred on.
    void SetParent(QWidget* parent) { parent_ = parent; }

private:
    QPointer<QWidget> parent_;
};

class SystemFileDialogs : public FileDialogs {
public:
    std::optional<QString> OpenFile(const FileDialogRequest& request) override;
    std::optional<QString> SaveFile(const FileDialogRequest& request) override;
    std::optional<QStringList> OpenFiles(const FileDialogRequest& request) override;
    std::optional<QString> ChooseFolder(const FileDialogRequest& request) override;
};

class HelpWindow;

// Help in a window of the program's own; the web page in the system browser.
class SystemHelpDisplay : public HelpDisplay {
public:
    explicit SystemHelpDisplay(Prompts& prompts);
    ~SystemHelpDisplay() override;
    void ShowHelp(const QString& helpFile, int command, std::optional<int> context) override;
    bool OpenWebPage(const QString& url) override;

private:
    Prompts& prompts_;
    std::unique_ptr<HelpWindow> window_;
};

class SystemClock : public Clock {
public:
    int CurrentYear() const override;
};

}  // namespace pw

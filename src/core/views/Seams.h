#pragma once
// Everything a test cannot click through goes through one of these small
// interfaces; the program uses the real ones (RealSeams.h), tests the fakes.
#include <QString>
#include <QStringList>

#include "core/HelpContexts.h"
#include <functional>
#include <optional>
#include <string>

namespace pw {

enum class MsgIcon { None, Information, Question, Exclamation, Critical };
enum class MsgButtons { Ok, YesNo, RetryCancel };
enum class MsgResult { Ok, Yes, No, Retry, Cancel };

class Prompts {
public:
    virtual ~Prompts() = default;
    virtual MsgResult Message(const QString& text, const QString& title, MsgIcon icon,
                              MsgButtons buttons = MsgButtons::Ok) = 0;
    virtual void Beep() = 0;

    // Model texts are Latin-1 bytes.
    MsgResult Message(const std::string& text, const std::string& title, MsgIcon icon,
                      MsgButtons buttons = MsgButtons::Ok)
    {
        return Message(QString::fromLatin1(text), QString::fromLatin1(title), icon, buttons);
    }
};

struct FileDialogRequest {
    QString initialFolder;
    QString defaultExtension;  // ".pwp"
    QString proposedName;
    QString filter;            // "Platewell profiles (*.pwp)|*.pwp"
    bool overwritePrompt = false;
    bool pathMustExist = false;
    bool fileMustExist = false;
    bool hideReadOnly = false;
};

class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    // The chosen path, or nothing when the user cancelled.
    virtual std::optional<QString> OpenFile(const FileDialogRequest& request) = 0;
    virtual std::optional<QString> SaveFile(const FileDialogRequest& request) = 0;
    // Several existing files chosen at once; by default the one of OpenFile.
    virtual std::optional<QStringList> OpenFiles(const FileDialogRequest& request)
    {
        const std::optional<QString> one = OpenFile(request);
        return one ? std::optional<QStringList>(QStringList{*one}) : std::nullopt;
    }
    // An existing folder; by default what OpenFile answers.
    virtual std::optional<QString> ChooseFolder(const FileDialogRequest& request) { return OpenFile(request); }
};


class HelpDisplay {
public:
    virtual ~HelpDisplay() = default;
    virtual void ShowHelp(const QString& helpFile, int command, std::optional<int> context) = 0;
    // Opens a web address in the system's browser; false when that failed.
    virtual bool OpenWebPage(const QString& url) = 0;
};

struct ReportDocument;

// The system's printers: whether there is one, the print dialog and the
// print preview, each drawing the report with the one renderer.
class Printer {
public:
    virtual ~Printer() = default;
    virtual bool HasPrinter() const = 0;
    // The print dialog with the default printer chosen; false when nothing
    // was printed (cancelled, or the printer failed).
    virtual bool Print(const ReportDocument& report) = 0;
    // The report in a preview window, from which it can be printed.
    virtual void Preview(const ReportDocument& report) = 0;
};

class Clock {
public:
    virtual ~Clock() = default;
    virtual int CurrentYear() const = 0;
};

// The seams a window needs, handed down from main together with the Session.
struct Seams {
    Prompts& prompts;
    FileDialogs& files;
    HelpDisplay& help;
    Clock& clock;
    Printer& printer;
};

// The path of the file name in the program folder: an existing file whose
// name differs only in case is taken, else folder + "/" + name.
QString InFolder(const std::string& folder, const QString& name);

// Opens the program folder's help file at a topic: the one way every window
// asks for help.
void OpenHelp(HelpDisplay& help, const std::string& programFolder, int command, std::optional<int> context);

// Runs save, a write of one file. When the file cannot be written the user is
// told which file and the system's reason; with offerRetry the message offers
// Retry (after the user freed space or fixed permissions) until the save
// succeeds or the user cancels. Returns whether the file was written.
bool SaveOrTell(Prompts& prompts, const QString& title, const std::function<void()>& save, bool offerRetry = false);

}  // namespace pw

#pragma once
// Fakes of the window seams: prompts that record every message and answer
// from a script, file dialogs that return scripted paths, a help display
// that records its calls, and a fixed clock.
#include <deque>
#include <optional>
#include <vector>

#include "printing/Report.h"
#include "core/views/Seams.h"

namespace pw::test {

struct RecordedMessage {
    QString text;
    QString title;
    MsgIcon icon;
    MsgButtons buttons;
};

// A message as one text, to compare all it shows at once.
inline QString Shown(const RecordedMessage& m)
{
    return m.title + '|' + QString::number(int(m.icon)) + '|' + QString::number(int(m.buttons)) + '|' + m.text;
}
// Every message shown, in order, each as one text.
inline QStringList Shown(const std::vector<RecordedMessage>& messages)
{
    QStringList texts;
    for (const RecordedMessage& m : messages)
        texts << Shown(m);
    return texts;
}

class RecordingPrompts : public Prompts {
public:
    using Prompts::Message;
    MsgResult Message(const QString& text, const QString& title, MsgIcon icon, MsgButtons buttons) override
    {
        messages.push_back({text, title, icon, buttons});
        events.push_back(QStringLiteral("message:") + title);
        if (buttons == MsgButtons::Ok)
            return MsgResult::Ok;
        if (answers.empty())
            return buttons == MsgButtons::RetryCancel ? MsgResult::Cancel : MsgResult::No;
        MsgResult answer = answers.front();
        answers.pop_front();
        return answer;
    }
    void Beep() override
    {
        ++beeps;
        events.push_back(QStringLiteral("beep"));
    }

    std::vector<RecordedMessage> messages;
    std::deque<MsgResult> answers;  // for questions; No (or Cancel) when empty
    std::vector<QString> events;    // messages and beeps in order
    int beeps = 0;
};

class ScriptedFileDialogs : public FileDialogs {
public:
    std::optional<QString> OpenFile(const FileDialogRequest& request) override
    {
        openRequests.push_back(request);
        return Next();
    }
    std::optional<QString> SaveFile(const FileDialogRequest& request) override
    {
        saveRequests.push_back(request);
        return Next();
    }
    // Several files: one answer with the paths on lines of their own.
    std::optional<QStringList> OpenFiles(const FileDialogRequest& request) override
    {
        const std::optional<QString> answer = OpenFile(request);
        return answer ? std::optional<QStringList>(answer->split(QLatin1Char('\n'))) : std::nullopt;
    }

    std::deque<std::optional<QString>> answers;  // nothing = cancelled
    std::vector<FileDialogRequest> openRequests;
    std::vector<FileDialogRequest> saveRequests;

private:
    std::optional<QString> Next()
    {
        std::optional<QString> answer;
        if (!answers.empty()) {
            answer.swap(answers.front());
            answers.pop_front();
        }
        return answer;
    }
};

struct HelpCall {
    QString file;
    int command;
    std::optional<int> context;
};

class RecordingHelp : public HelpDisplay {
public:
    void ShowHelp(const QString& helpFile, int command, std::optional<int> context) override
    {
        calls.push_back({helpFile, command, context});
    }
    bool OpenWebPage(const QString& url) override
    {
        pages.push_back(url);
        return webPageOpens;
    }

    std::vector<HelpCall> calls;
    std::vector<QString> pages;
    bool webPageOpens = true;
};

class FixedClock : public Clock {
public:
    explicit FixedClock(int year = 2026) : year(year) {}
    int CurrentYear() const override { return year; }
    int year;
};

// Records the reports printed and previewed; a machine with or without a
// printer.
class RecordingPrinter : public Printer {
public:
    bool HasPrinter() const override { return hasPrinter; }
    bool Print(const ReportDocument& report) override
    {
        printed.push_back(report);
        return true;
    }
    void Preview(const ReportDocument& report) override { previewed.push_back(report); }

    bool hasPrinter = true;
    std::vector<ReportDocument> printed;
    std::vector<ReportDocument> previewed;
};

// All the fakes together, with the Seams that refer to them.
struct FakeSeams {
    RecordingPrompts prompts;
    ScriptedFileDialogs files;
    RecordingHelp help;
    FixedClock clock;
    RecordingPrinter printer;
    Seams seams{prompts, files, help, clock, printer};
};

}  // namespace pw::test

#include "shell/views/CommandLine.h"
#include "shell/views/DaysCommandLine.h"
#include "core/views/Widgets.h"
#include "shell/ProgramFolder.h"

#include <QCommandLineParser>
#include <QDate>
#include <QFile>
#include <QGuiApplication>
#include <cstdio>

#include "analysis/AnalysisFile.h"
#include "analysis/AnalysisOpening.h"
#include "core/LineFile.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "days/DayFiles.h"
#include "fooddb/DataFile.h"
#include "printing/Report.h"
#include "printing/views/ReportCommands.h"
#include "printing/views/ReportRenderer.h"
#include "shell/Session.h"
#include "shell/StartupTexts.h"

namespace pw {

namespace {

constexpr const char* kExportPdf = "export-pdf";
constexpr const char* kExportCsv = "export-csv";
constexpr const char* kExportText = "export-text";
constexpr int kFailed = 1;
constexpr int kUsageError = 2;

// The window's texts break lines with CR LF; a terminal wants LF.
void PrintError(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    std::fprintf(stderr, "%s\n", text.toUtf8().constData());
}

void PrintError(const std::string& latin1) { PrintError(QString::fromLatin1(latin1)); }
void PrintError(const char* latin1) { PrintError(QString::fromLatin1(latin1)); }

}  // namespace

bool LoadFoodTableForReports(const std::string& programFolder, FoodTable& table)
{
    const std::string dataPath = FindFileNoCase(programFolder, kDataFileName);
    if (dataPath.empty()) {
        PrintError(texts::kFilesCorrupt);
        return false;
    }
    try {
        if (LoadDatabaseHeader(ReadWholeFile(dataPath), table) == HeaderResult::ChecksumMismatch) {
            PrintError(texts::kDatabaseCorrupted);
            return false;
        }
        LoadDatabaseRecords(table);
    } catch (const RunTimeError& error) {
        PrintError(error.Message());
        return false;
    }
    return true;
}

namespace {

QString HelpText(const QCommandLineParser& parser)
{
    return QStringLiteral("Usage: platewell [LIST.pwl]\n"
                          "       platewell --export-pdf OUT.pdf LIST.pwl\n"
                          "       platewell --export-csv OUT.csv LIST.pwl\n"
                          "       platewell --export-text LIST.pwl\n") +
           DaysUsageText() + QStringLiteral("\n") +
           parser.helpText().section(QLatin1Char('\n'), 1);
}

}  // namespace

CommandLineRequest ParseCommandLine(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Platewell analyses what a person eats. Without options it opens its window, with the list "
                       "file when one is given; the export options make a report of a list file without any window, "
                       "using the food database of the program's folder."));
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Shows this help."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Shows the program's version."));
    const QCommandLineOption pdf(QString::fromLatin1(kExportPdf),
                                 QStringLiteral("Writes the analysis report of the list as a PDF file."),
                                 QStringLiteral("OUT.pdf"));
    const QCommandLineOption csv(QString::fromLatin1(kExportCsv),
                                 QStringLiteral("Writes the foods of the list as comma-separated values."),
                                 QStringLiteral("OUT.csv"));
    const QCommandLineOption text(QString::fromLatin1(kExportText),
                                  QStringLiteral("Writes the analysis report of the list as text on standard output."));
    parser.addOptions({help, version, pdf, csv, text});
    AddDaysOptions(parser);
    // Qt's own options reach the window untouched; the parser only has to
    // know them to find the list file among them.
    for (const char* name : {"platform", "display", "style", "stylesheet", "geometry", "qwindowgeometry",
                             "qwindowtitle", "qwindowicon", "fontengine", "session", "plugin"}) {
        QCommandLineOption option(QString::fromLatin1(name), QString(), QStringLiteral("value"));
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    }
    for (const char* name : {"reverse", "widgetcount", "nograb", "dograb", "sync"}) {
        QCommandLineOption option(QString::fromLatin1(name));
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    }
    parser.addPositionalArgument(QStringLiteral("LIST.pwl"), QStringLiteral("A food list and analysis file."));

    CommandLineRequest request;
    auto fail = [&](const QString& why) {
        request = {};
        request.action = CommandAction::Error;
        request.text = why + QStringLiteral("\nTry 'platewell --help' for more information.");
        return request;
    };
    if (!parser.parse(arguments) && !IsDaysRequest(arguments))
        return fail(parser.errorText());
    if (parser.isSet(help)) {
        request.action = CommandAction::Help;
        request.text = HelpText(parser);
        return request;
    }
    if (IsDaysRequest(arguments)) {
        request.action = CommandAction::ExportDays;
        request.arguments = arguments;
        return request;
    }
    if (parser.isSet(version)) {
        request.action = CommandAction::Version;
        request.text = QStringLiteral("Platewell ") + QString::fromLatin1(kProgramVersionText);
        return request;
    }
    const int exports = int(parser.isSet(pdf)) + int(parser.isSet(csv)) + int(parser.isSet(text));
    if (exports > 1 || parser.values(pdf).size() > 1 || parser.values(csv).size() > 1)
        return fail(QStringLiteral("Give one export option at a time."));
    const QStringList lists = parser.positionalArguments();
    if (lists.size() > 1)
        return fail(QStringLiteral("Give one list file at a time."));
    request.listFile = lists.isEmpty() ? QString() : lists.front();
    if (exports == 0)
        return request;
    if (request.listFile.isEmpty())
        return fail(QStringLiteral("The export needs a list file (.pwl)."));
    if (parser.isSet(pdf)) {
        request.action = CommandAction::ExportPdf;
        request.output = parser.value(pdf);
    } else if (parser.isSet(csv)) {
        request.action = CommandAction::ExportCsv;
        request.output = parser.value(csv);
    } else {
        request.action = CommandAction::ExportText;
    }
    return request;
}

int RunCommandLineRequest(const CommandLineRequest& request, const std::string& programFolder)
{
    switch (request.action) {
    case CommandAction::Window: return 0;
    case CommandAction::Help:
    case CommandAction::Version:
        std::fprintf(stdout, "%s\n", request.text.toUtf8().constData());
        return 0;
    case CommandAction::Error:
        std::fprintf(stderr, "%s\n", request.text.toUtf8().constData());
        return kUsageError;
    default: break;
    }

    if (request.action == CommandAction::ExportDays)
        return RunDaysRequest(request.arguments, programFolder);

    FoodTable table;
    if (!LoadFoodTableForReports(programFolder, table))
        return kFailed;
    // A file that cannot be read says why; one with neither a profile line
    // nor an item is no list, although the window opens it as an empty one.
    const std::string listPath = ToNativePath(request.listFile);
    if (const std::string reason = UnreadableReason(listPath); !reason.empty()) {
        PrintError(request.listFile + QStringLiteral(": ") + QString::fromLocal8Bit(reason.c_str()));
        return kFailed;
    }
    const AnalysisFileContent content = ReadAnalysisFile(listPath);
    if (content.valid && content.settings.empty() && content.items.empty()) {
        PrintError(request.listFile + QString::fromLatin1(texts::kNotAnAnalysisFile));
        return kFailed;
    }
    const OpenedAnalysis opened = OpenAnalysis(content, table, QDate::currentDate().year());
    for (const auto& message : opened.messages)
        PrintError(message.first);
    if (!opened.valid) {
        PrintError(request.listFile + QString::fromLatin1(texts::kNotAnAnalysisFile));
        return kFailed;
    }

    const ReportSource source{opened.profile, opened.dailyValues, opened.list,
                              QDate::currentDate().toString(Qt::ISODate).toStdString()};
    try {
        switch (request.action) {
        case CommandAction::ExportText: {
            const std::string text = Latin1ToUtf8(ReportText(BuildAnalysisReport(source)));
            std::fwrite(text.data(), 1, text.size(), stdout);
            return std::fflush(stdout) == 0 ? 0 : kFailed;
        }
        case CommandAction::ExportCsv:
            try {
                WriteFileAtomic(ToNativePath(request.output), FoodListCsv(opened.list));
            } catch (const RunTimeError&) {
                PrintError(QString::fromLatin1(texts::kListNotWritten) + request.output);
                return kFailed;
            }
            return 0;
        case CommandAction::ExportPdf:
            if (!WriteReportPdf(BuildAnalysisReport(source), request.output)) {
                PrintError(QString::fromLatin1(texts::kReportNotWritten) + request.output);
                return kFailed;
            }
            return 0;
        default: return 0;
        }
    } catch (const RunTimeError& error) {
        PrintError(error.Message());
        return kFailed;
    }
}

std::optional<int> RunWithoutWindow(int& argc, char** argv, CommandLineRequest& request)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    request = ParseCommandLine(arguments);
    // Options the command line does not know may be Qt's own (-platform,
    // -style): unless a report was asked for, they go to the window.
    bool reportAsked = false;
    for (qsizetype i = 1; i < arguments.size(); ++i)
        reportAsked = reportAsked || arguments[i].startsWith(QLatin1String("--export")) ||
                      arguments[i].startsWith(QLatin1String("-export"));
    if (request.action == CommandAction::Error && !reportAsked) {
        request = {};
        return std::nullopt;
    }
    switch (request.action) {
    case CommandAction::Window: return std::nullopt;
    case CommandAction::Help:
    case CommandAction::Version:
    case CommandAction::Error: return RunCommandLineRequest(request, {});
    default: break;
    }
    // Reports are drawn without a display, and standard error holds only
    // the program's own messages.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& message) {
        if (type == QtCriticalMsg || type == QtFatalMsg)
            PrintError(message);
    });
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    app.setApplicationName(QStringLiteral("Platewell"));
    return RunCommandLineRequest(request, ProgramFolderToRead(QCoreApplication::applicationDirPath().toStdString()));
}

}  // namespace pw

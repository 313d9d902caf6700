#include "shell/views/CommandLine.h"
#include "shell/views/DaysCommandLine.h"
#include "shell/views/RichInCommandLine.h"
#include "core/views/Widgets.h"
#include "shell/ProgramFolder.h"

#include <QCommandLineParser>
#include <QDate>
#include <QFile>
#include <QGuiApplication>
#include <cstdio>
#include <unistd.h>

#include "analysis/AnalysisFile.h"
#include "analysis/AnalysisOpening.h"
#include "core/LineFile.h"
#include "core/OutputTarget.h"
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

// Messages go to the terminal as UTF-8 with their CR LF made LF and every
// control character from a file escaped.
void PrintUtf8(const std::string& utf8)
{
    const std::string shown = TerminalText(utf8) + "\n";
    std::fwrite(shown.data(), 1, shown.size(), stderr);
}

namespace {

constexpr const char* kExportPdf = "export-pdf";
constexpr const char* kExportCsv = "export-csv";
constexpr const char* kExportText = "export-text";
constexpr int kFailed = 1;
constexpr int kUsageError = 2;


void PrintError(const QString& text) { PrintUtf8(text.toStdString()); }
void PrintError(const std::string& latin1) { PrintUtf8(Latin1ToUtf8(latin1)); }
void PrintError(const char* latin1) { PrintUtf8(Latin1ToUtf8(latin1)); }

// A path as the user typed it: its bytes, escaped where they are not text.
std::string ShownPath(const CommandLineRequest& request, const QString& path)
{
    return request.bytePaths ? PathBytes(request, path) : path.toStdString();
}

}  // namespace

std::vector<OwnFile> OwnFilesOfProgram(const std::string& programFolder)
{
    std::vector<std::string> folders{programFolder};
    const ProgramFolderPlaces places = ProgramFolderPlacesFor(QCoreApplication::applicationDirPath().toStdString());
    folders.push_back(places.executableFolder);
    if (!places.dataHome.empty())
        folders.push_back(JoinPath(places.dataHome, kUserFolderName));
    if (!places.deliveredFolder.empty())
        folders.push_back(places.deliveredFolder);
    return ProgramOwnFiles(folders);
}

bool LoadFoodTable(const std::string& programFolder, FoodTable& table)
{
    const std::string dataPath = FindFileNoCase(programFolder, kDataFileName);
    if (dataPath.empty()) {
        PrintError(texts::kFilesCorrupt);
        return false;
    }
    try {
        if (LoadDatabaseHeader(ReadWholeFile(dataPath, kDataFileLimit), table) == HeaderResult::ChecksumMismatch) {
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
                          "       platewell --export-text LIST.pwl\n"
                          "       platewell --rich-in NUTRIENT [--per-100-calories] [--group NAME]\n"
                          "                 [--most | --least] [--top N]\n") +
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
    const QCommandLineOption richIn(
        QStringLiteral("rich-in"),
        QStringLiteral("Prints the foods ranked by a nutrient (Calories, Protein, Carbohydrates, Fat, Cholesterol, "
                       "Fiber, Calcium, Sodium), one a line: rank, group, subgroup, description, measure and amount, "
                       "separated by tabs. --per-100-calories ranks by the amount per 100 calories, --group NAME "
                       "keeps one food group, --most or --least sets the order (by default least first for Fat, "
                       "Cholesterol and Sodium), --top N prints the first N."),
        QStringLiteral("NUTRIENT"));
    parser.addOptions({help, version, pdf, csv, text, richIn});
    AddDaysOptions(parser);
    // Qt's own options reach the window untouched; the parser only has to
    // know them to find the list file among them.
    for (const char* name : {"platform", "display", "style", "stylesheet", "geometry", "qwindowgeometry",
                             "qwindowtitle", "qwindowicon", "fontengine", "session", "plugin", "platformpluginpath",
                             "platformtheme", "qmljsdebugger", "title", "name", "visual", "ncols", "im",
                             "inputstyle", "bg", "background", "fg", "foreground", "btn", "button", "fn", "font"}) {
        QCommandLineOption option(QString::fromLatin1(name), QString(), QStringLiteral("value"));
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    }
    for (const char* name : {"reverse", "widgetcount", "nograb", "dograb", "sync", "cmap"}) {
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
        PrintError(request.text);
        return kUsageError;
    default: break;
    }

    if (request.action == CommandAction::ExportDays)
        return RunDaysRequest(request.arguments, programFolder, request.bytePaths);

    const std::string listPath = PathBytes(request, request.listFile);
    const std::string outputPath = PathBytes(request, request.output);
    OutputTarget target;
    if (request.action == CommandAction::ExportCsv || request.action == CommandAction::ExportPdf) {
        target = CheckOutputTarget(outputPath, {listPath}, OwnFilesOfProgram(programFolder));
        if (target.kind == OutputTarget::Kind::Refused) {
            PrintUtf8(ShownPath(request, request.output) + "\nis not written: it " + target.reason + ".");
            return kFailed;
        }
    }

    FoodTable table;
    if (!LoadFoodTable(programFolder, table))
        return kFailed;
    // A file that cannot be read says why; one with neither a profile line
    // nor an item is no list, although the window opens it as an empty one.
    if (const std::string reason = UnreadableReason(listPath); !reason.empty()) {
        PrintUtf8(ShownPath(request, request.listFile) + ": " + reason);
        return kFailed;
    }
    const AnalysisFileContent content = ReadAnalysisFile(listPath);
    if (content.valid && content.settings.empty() && content.items.empty()) {
        PrintUtf8(ShownPath(request, request.listFile) + Latin1ToUtf8(texts::kNotAnAnalysisFile));
        return kFailed;
    }
    const OpenedAnalysis opened = OpenAnalysis(content, table, QDate::currentDate().year());
    for (const auto& message : opened.messages)
        PrintError(message.first);
    if (!opened.valid) {
        PrintUtf8(ShownPath(request, request.listFile) + Latin1ToUtf8(texts::kNotAnAnalysisFile));
        return kFailed;
    }

    const ReportSource source{opened.profile, opened.dailyValues, opened.list,
                              QDate::currentDate().toString(Qt::ISODate).toStdString()};
    try {
        switch (request.action) {
        case CommandAction::ExportText:
            // Every byte checked: a full disk or a closed pipe is a failure,
            // not a report cut short.
            try {
                WriteInPlace(STDOUT_FILENO, "standard output",
                             TerminalText(Latin1ToUtf8(ReportText(BuildAnalysisReport(source)))));
            } catch (const SaveError& error) {
                PrintUtf8(std::string(texts::kReportNotWritten) + "standard output: " + error.Reason());
                return kFailed;
            }
            return 0;
        case CommandAction::ExportCsv:
            try {
                WriteOutput(outputPath, target, FoodListCsv(opened.list));
            } catch (const RunTimeError&) {
                PrintUtf8(Latin1ToUtf8(texts::kListNotWritten) + ShownPath(request, request.output));
                return kFailed;
            }
            return 0;
        case CommandAction::ExportPdf: {
            const std::optional<QByteArray> pdf = ReportPdfBytes(BuildAnalysisReport(source));
            try {
                if (!pdf)
                    throw SaveError(outputPath, "the report could not be drawn");
                WriteOutput(outputPath, target, std::string_view(pdf->constData(), std::size_t(pdf->size())));
            } catch (const RunTimeError&) {
                PrintUtf8(Latin1ToUtf8(texts::kReportNotWritten) + ShownPath(request, request.output));
                return kFailed;
            }
            return 0;
        }
        default: return 0;
        }
    } catch (const RunTimeError& error) {
        PrintError(error.Message());
        return kFailed;
    }
}

std::string PathBytes(const CommandLineRequest& request, const QString& path)
{
    return request.bytePaths ? path.toLatin1().toStdString() : ToNativePath(path);
}

std::optional<int> RunWithoutWindow(int& argc, char** argv, CommandLineRequest& request)
{
    if (const std::optional<int> status = RunRichInCommandLine(argc, argv))
        return status;
    // A report's paths are kept as the bytes they are (one Latin-1
    // character a byte); the window's list goes through Qt's own decoding.
    bool reportAsked = false;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument(argv[i]);
        reportAsked = reportAsked || argument.starts_with("--export") || argument.starts_with("-export");
    }
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << (reportAsked ? QString::fromLatin1(argv[i]) : QString::fromLocal8Bit(argv[i]));
    request = ParseCommandLine(arguments);
    request.bytePaths = reportAsked;
    // Qt's own options are known to the parser, so whatever it refuses is
    // told here, without a display.
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

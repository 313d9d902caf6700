#include "shell/views/DaysCommandLine.h"

#include <QDate>
#include <cstdio>
#include <unistd.h>

#include "core/LineFile.h"
#include "core/OutputTarget.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "core/views/Widgets.h"
#include "days/DayFiles.h"
#include "days/PeriodReport.h"
#include "printing/views/ReportCommands.h"
#include "printing/views/ReportRenderer.h"
#include "shell/views/CommandLine.h"

namespace pw {

namespace {

constexpr const char* kDaysCsv = "export-days-csv";
constexpr const char* kDaysFoodsCsv = "export-days-foods-csv";
constexpr const char* kDaysPdf = "export-days-pdf";
constexpr const char* kDaysText = "export-days-text";
constexpr int kFailed = 1;
constexpr int kUsageError = 2;
constexpr const char* kNoDayRead = "No list file was read: there is no day to export.";
constexpr const char* kLostPrefix = "No longer in the database, left out: ";

struct DaysOptions {
    QCommandLineOption csv{QString::fromLatin1(kDaysCsv),
                           QStringLiteral("Writes the days of the list files (or folders of them) as comma-separated "
                                          "values: a row per day, the averages and the averages of % of DV."),
                           QStringLiteral("OUT.csv")};
    QCommandLineOption foodsCsv{QString::fromLatin1(kDaysFoodsCsv),
                                QStringLiteral("Writes every food of every day as comma-separated values."),
                                QStringLiteral("OUT.csv")};
    QCommandLineOption pdf{QString::fromLatin1(kDaysPdf), QStringLiteral("Writes the period report as a PDF file."),
                           QStringLiteral("OUT.pdf")};
    QCommandLineOption text{QString::fromLatin1(kDaysText),
                            QStringLiteral("Writes the days, the averages and the top foods as text on standard "
                                           "output.")};
};

int Usage(const QString& why)
{
    PrintUtf8((why + QStringLiteral("\nTry 'platewell --help' for more information.")).toStdString());
    return kUsageError;
}

}  // namespace

bool IsDaysRequest(const QStringList& arguments)
{
    for (qsizetype i = 1; i < arguments.size(); ++i)
        if (arguments[i].startsWith(QLatin1String("--export-days")) ||
            arguments[i].startsWith(QLatin1String("-export-days")))
            return true;
    return false;
}

QString DaysUsageText()
{
    return QStringLiteral("       platewell --export-days-csv OUT.csv PATH...\n"
                          "       platewell --export-days-foods-csv OUT.csv PATH...\n"
                          "       platewell --export-days-pdf OUT.pdf PATH...\n"
                          "       platewell --export-days-text PATH...\n"
                          "       (a PATH is a list file or a folder of list files)\n");
}

void AddDaysOptions(QCommandLineParser& parser)
{
    const DaysOptions options;
    parser.addOptions({options.csv, options.foodsCsv, options.pdf, options.text});
}

int RunDaysRequest(const QStringList& arguments, const std::string& programFolder, bool bytePaths)
{
    const auto pathBytes = [&](const QString& path) {
        return bytePaths ? path.toLatin1().toStdString() : ToNativePath(path);
    };
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const DaysOptions options;
    parser.addOptions({options.csv, options.foodsCsv, options.pdf, options.text});
    if (!parser.parse(arguments))
        return Usage(parser.errorText());
    const int exports = int(parser.isSet(options.csv)) + int(parser.isSet(options.foodsCsv)) +
                        int(parser.isSet(options.pdf)) + int(parser.isSet(options.text));
    if (exports != 1 || parser.values(options.csv).size() > 1 || parser.values(options.foodsCsv).size() > 1 ||
        parser.values(options.pdf).size() > 1)
        return Usage(QStringLiteral("Give one export option at a time."));
    const QStringList paths = parser.positionalArguments();
    if (paths.isEmpty())
        return Usage(QStringLiteral("The export needs list files (.pwl) or folders of them."));

    // The output is checked before anything is read: never one of the
    // lists, a list of a folder given, or one of the program's own files.
    std::vector<std::string> inputs;
    for (const QString& path : paths)
        inputs.push_back(pathBytes(path));
    const std::vector<std::string> files = ExpandDayPaths(inputs);
    std::vector<std::string> guarded = files;
    guarded.insert(guarded.end(), inputs.begin(), inputs.end());
    const QCommandLineOption* written = parser.isSet(options.csv)        ? &options.csv
                                        : parser.isSet(options.foodsCsv) ? &options.foodsCsv
                                        : parser.isSet(options.pdf)      ? &options.pdf
                                                                         : nullptr;
    const std::string output = written ? pathBytes(parser.value(*written)) : std::string();
    OutputTarget target;
    if (written) {
        target = CheckOutputTarget(output, guarded, OwnFilesOfProgram(programFolder));
        if (target.kind == OutputTarget::Kind::Refused) {
            PrintUtf8(output + "\nis not written: it " + target.reason + ".");
            return kFailed;
        }
    }

    FoodTable table;
    if (!LoadFoodTable(programFolder, table))
        return kFailed;
    std::vector<DayFileInput> read;
    for (const std::string& file : files)
        read.push_back(ReadDayFile(file));
    const Period period = BuildPeriod(std::move(read), table, QDate::currentDate().year());
    for (const SkippedFile& skipped : period.skipped)
        PrintUtf8(skipped.path + ": " + Latin1ToUtf8(skipped.reason));
    for (const LostFood& lost : period.lost)
        PrintUtf8(Latin1ToUtf8(std::string(kLostPrefix) + LostFoodLine(lost)));
    if (period.Empty()) {
        PrintUtf8(kNoDayRead);
        return kFailed;
    }

    const std::string today = QDate::currentDate().toString(Qt::ISODate).toStdString();
    try {
        if (!written) {
            // Every byte checked: a full disk or a closed pipe is a failure.
            try {
                WriteInPlace(STDOUT_FILENO, "standard output", TerminalText(Latin1ToUtf8(PeriodText(period, today))));
            } catch (const SaveError& error) {
                PrintUtf8(std::string(texts::kReportNotWritten) + "standard output: " + error.Reason());
                return kFailed;
            }
            return 0;
        }
        std::string bytes;
        if (written == &options.pdf) {
            const std::optional<QByteArray> pdf = ReportPdfBytes(BuildPeriodReport(period, today));
            if (!pdf) {
                PrintUtf8(Latin1ToUtf8(texts::kReportNotWritten) + output + ": the report could not be drawn");
                return kFailed;
            }
            bytes.assign(pdf->constData(), std::size_t(pdf->size()));
        } else {
            bytes = written == &options.csv ? PeriodDaysCsv(period) : PeriodFoodsCsv(period);
        }
        try {
            WriteOutput(output, target, bytes);
        } catch (const SaveError& error) {
            PrintUtf8(Latin1ToUtf8(texts::kReportNotWritten) + output + ": " + error.Reason());
            return kFailed;
        }
        return 0;
    } catch (const RunTimeError& error) {
        PrintUtf8(Latin1ToUtf8(error.Message()));
        return kFailed;
    }
}

}  // namespace pw

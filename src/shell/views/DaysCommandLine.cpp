#include "shell/views/DaysCommandLine.h"

#include <QDate>
#include <cstdio>

#include "core/LineFile.h"
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

void Print(std::FILE* stream, QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    std::fprintf(stream, "%s\n", text.toUtf8().constData());
}

int Usage(const QString& why)
{
    Print(stderr, why + QStringLiteral("\nTry 'platewell --help' for more information."));
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

int RunDaysRequest(const QStringList& arguments, const std::string& programFolder)
{
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

    FoodTable table;
    if (!LoadFoodTableForReports(programFolder, table))
        return kFailed;
    std::vector<std::string> nativePaths;
    for (const QString& path : paths)
        nativePaths.push_back(ToNativePath(path));
    const Period period = ReadPeriod(nativePaths, table, QDate::currentDate().year());
    for (const SkippedFile& skipped : period.skipped)
        Print(stderr, QString::fromLocal8Bit(skipped.path.c_str()) + QStringLiteral(": ") +
                          QString::fromLatin1(skipped.reason));
    for (const LostFood& lost : period.lost)
        Print(stderr, QString::fromLatin1(kLostPrefix) + QString::fromLatin1(LostFoodLine(lost)));
    if (period.Empty()) {
        Print(stderr, QString::fromLatin1(kNoDayRead));
        return kFailed;
    }

    const std::string today = QDate::currentDate().toString(Qt::ISODate).toStdString();
    try {
        if (parser.isSet(options.text)) {
            const std::string text = Latin1ToUtf8(PeriodText(period, today));
            std::fwrite(text.data(), 1, text.size(), stdout);
            return std::fflush(stdout) == 0 ? 0 : kFailed;
        }
        if (parser.isSet(options.pdf)) {
            const QString output = parser.value(options.pdf);
            if (!WriteReportPdf(BuildPeriodReport(period, today), output)) {
                Print(stderr, QString::fromLatin1(texts::kReportNotWritten) + output);
                return kFailed;
            }
            return 0;
        }
        const bool days = parser.isSet(options.csv);
        const QString output = parser.value(days ? options.csv : options.foodsCsv);
        try {
            WriteFileAtomic(ToNativePath(output), days ? PeriodDaysCsv(period) : PeriodFoodsCsv(period));
        } catch (const SaveError& error) {
            Print(stderr, QString::fromLatin1(texts::kReportNotWritten) + output + QStringLiteral(": ") +
                              QString::fromLocal8Bit(error.Reason().c_str()));
            return kFailed;
        }
        return 0;
    } catch (const RunTimeError& error) {
        Print(stderr, QString::fromLatin1(error.Message()));
        return kFailed;
    }
}

}  // namespace pw

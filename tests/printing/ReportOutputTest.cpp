// The reports as a person gets them: rendered pages and PDFs, the chart on
// the analysis tab, the File menu's report commands on a running program,
// and the command-line exports of the built executable.
#include <QAction>
#include <QDate>
#include <QFontMetricsF>
#include <QTabWidget>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>
#include <filesystem>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>
#include <numeric>
#include <set>

#include "Fixtures.h"
#include "WindowTestSupport.h"
#include "analysis/AnalysisFile.h"
#include "analysis/AnalysisOpening.h"
#include "core/LineFile.h"
#include "printing/views/NutrientChart.h"
#include "printing/views/ReportCommands.h"
#include "printing/views/ReportRenderer.h"
#include "shell/views/CommandLine.h"

using namespace pw;
using namespace pw::test;

namespace {

// Milk 2-1/2 cups, a food no longer in the table, a slice of bread.
const std::string kDay =
    "NAME:Ann Example\r\nYOB:62\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:150\r\nSEX: 0 \r\nLIFESTYLE: 0 \r\n"
    "ITEM: 6 \t2-1/2\tDairy and Eggs\tMilk\tWhole\t1 cup\r\n"
    "ITEM: 3 \t1\tSnacks\tChips\tPotato\t1 oz\r\n"
    "ITEM: 0 \t1\tBakery and Grains\tBread\tWhite\t1 slice\r\n";

// Descriptions as long as the delivered database's longest.
const char* const kLongDescriptions[] = {
    "Cereals ready-to-eat, wheat and malted barley flakes, fortified with vitamins and minerals",
    "Chicken, broilers or fryers, breast, meat and skin, cooked, roasted, without added salt",
    "Soup, cream of mushroom, canned, condensed, commercial, reduced sodium, prepared with equal volume water",
    "Yogurt, fruit variety, nonfat, sweetened with low-calorie sweetener, calcium fortified"};

// Ann Example, 150 pounds, and a list of rows foods of long texts.
struct LongDay {
    explicit LongDay(int rows)
    {
        ValidateProfile({"Ann Example", "62", "64", "150", kMeasurementEnglish, kSexFemale, kLifestyleSedentary},
                        2026, profile);
        for (int r = 0; r < rows; ++r) {
            FoodListEntry e{0, std::to_string(r % 3 + 1) + "-1/2", "Breakfast Cereals and Grains",
                            "Subgroup of reduced calories " + std::to_string(r),
                            kLongDescriptions[r % 4], "1 cup, chopped or diced", {}, {}};
            e.amounts = {100 + r, 12, 30, 4, 15, 3, 250, 1190, 0};
            e.percents = {5, 19, 10, 6, 5, 12, 30, 48};
            list.Append(e);
        }
    }
    std::vector<ReportDocument> Reports(bool byUnits) const
    {
        const ReportSource source{profile, dailyValues, list, "2026-11-23"};
        return {BuildAnalysisReport(source), BuildFoodListReport(source, byUnits)};
    }

    Profile profile;
    DailyValues dailyValues = ComputeDailyValues(150, kSexFemale, kLifestyleSedentary);
    FoodList list;
};

std::set<QString> Words(const QString& text)
{
    const QStringList words = text.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
    return {words.begin(), words.end()};
}

// The executable copied into a program folder of the sample table, run with
// no display and no platform chosen.
struct Exports : ProgramCopy {
    Exports() : ProgramCopy(PLATEWELL_EXE)
    {
        folder.Write("day.pwl", kDay);
        folder.Write("binary.pwl", std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16));
    }
    using ProgramCopy::Run;
    // /bin/sh run with shellArguments (the first argument unused).
    std::tuple<int, QString, QString> Run(const QStringList&, const QStringList& shellArguments) const
    {
        return RunWithoutDisplay(QStringLiteral("/bin/sh"), shellArguments);
    }
};

}  // namespace

class ReportOutputTest : public QObject {
    Q_OBJECT

private slots:
    void PdfHoldsTheProfileTheDailyValuesAndEveryFoodUnbroken()
    {
        const LongDay day(30);
        TempFolder folder;
        const std::pair<const char*, QPageSize::PageSizeId> papers[] = {{"A4", QPageSize::A4},
                                                                        {"Letter", QPageSize::Letter}};
        for (const auto& [paper, size] : papers) {
            for (const ReportDocument& report : day.Reports(true)) {
                const QString path = QString::fromStdString(folder.File(std::string(paper) + ".pdf"));
                QVERIFY(WriteReportPdf(report, path, QPageSize(size)));
                const QString text = PdfText(path);
                const std::set<QString> words = Words(text);
                QStringList expected = {"Ann", "Example", "2026-11-23", "Page", "1", "of"};
                if (report.title == texts::kAnalysisReportTitle)
                    expected << "Age: 64 years" << "BMI: 26 (Overweight)" << "Weight: 150 pounds" << "2100" << "63 g"
                             << "304 g" << "70 g" << "315 mg" << "26 g" << "840 mg" << "2494 mg";
                for (const QString& phrase : expected)
                    QVERIFY2(text.contains(phrase), qPrintable(QStringLiteral("%1 %2: %3").arg(paper, phrase, text)));
                // Every word of every food stands whole somewhere in the text.
                for (int row = 1; row <= day.list.Count(); ++row) {
                    const FoodListEntry& e = day.list.Entry(row);
                    for (const std::string* part : {&e.description, &e.subgroup, &e.measure, &e.quantityText})
                        for (const QString& word : Words(QString::fromLatin1(*part)))
                            QVERIFY2(words.count(word), qPrintable(QStringLiteral("%1: '%2' broken").arg(paper, word)));
                }
                for (const char* caption : {"Calories", "Protein", "Cholesterol", "Calcium", "Sodium", "Total"})
                    QVERIFY2(words.count(caption), caption);
            }
        }
    }

    void AFiveHundredRowListRepeatsItsHeaderOnEveryPage()
    {
        const int dpi = 72;
        for (const ReportDocument& report : LongDay(kFoodListCapacity).Reports(false)) {
            const std::vector<QImage> images = RenderReportImages(report, QPageSize(QPageSize::A4), dpi);
            const QRect paint = ReportPageLayout(report).paintRectPixels(dpi);
            const ReportLayout layout(report, paint.size(), dpi);
            QCOMPARE(int(images.size()), layout.PageCount());
            QVERIFY(layout.PageCount() > 10);
            // The food rows in order, each on one page only, the header first
            // on every page the table reaches, the totals last; something is
            // drawn in every page's header band.
            std::vector<int> rows;
            for (int p = 0; p < layout.PageCount(); ++p) {
                const ReportLayout::PageSummary page = layout.Summary(p);
                QCOMPARE(page.footer, QStringLiteral("Page %1 of %2").arg(p + 1).arg(layout.PageCount()));
                QCOMPARE(page.header, QString::fromLatin1(report.title) + QStringLiteral("|Ann Example  \u2022  2026-11-23"));
                QVERIFY(!page.tableRows.empty());
                const std::vector<int>& foods = page.tableRows.back();
                QVERIFY(foods.front() == -1 && std::count(foods.begin(), foods.end(), -1) == 1);
                rows.insert(rows.end(), foods.begin() + 1, foods.end());
                const QRect band(paint.left(), paint.top(), paint.width(), 12);
                QVERIFY2(DarkShare(images[size_t(p)], band, 100) > 0, qPrintable(QString::number(p)));
            }
            std::vector<int> expected(kFoodListCapacity);
            std::iota(expected.begin(), expected.end(), 0);
            expected.push_back(-2);
            QVERIFY(rows == expected);
            QCOMPARE(layout.Summary(0).chart, report.title == texts::kAnalysisReportTitle);
        }
    }

    void TheChartsBarsFollowTheirPercentages()
    {
        // The largest percentages and the scale they give.
        const std::pair<std::vector<std::int32_t>, int> scales[] = {
            {{20, 90}, 150}, {{151}, 200}, {{180, 20}, 200}, {{250}, 250}, {{3000}, 300}, {{}, 150}};
        for (const auto& [percents, scale] : scales) {
            ChartData d;
            for (std::int32_t p : percents)
                d.bars.push_back({"x", p});
            QCOMPARE(ChartScalePercent(d), scale);
        }

        const ChartData data{{{"Calories", 50}, {"Protein", 100}, {"Fat", 150}, {"Sodium", 400}}};
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(12);
        const QRectF rect(10, 10, 600, 200);
        const ChartGeometry g = LayoutNutrientChart(data, rect, font);
        QVERIFY(g.scalePercent == 300 && g.columns == 1);
        const qreal shown[] = {50, 100, 150, 300};
        const char* labels[] = {"50%", "100%", "150%", "400%"};
        for (int i = 0; i < 4; ++i) {
            const ChartBarGeometry& b = g.bars[size_t(i)];
            QCOMPARE(b.x100, b.plot.left() + b.plot.width() / 3);
            QVERIFY(qAbs(b.bar.width() - b.plot.width() * shown[i] / 300) < 0.01);
            QCOMPARE(b.bar.left(), b.plot.left());
            QCOMPARE(b.valueText, QString::fromLatin1(labels[i]));
            QVERIFY(b.over == (i >= 2) && b.beyondScale == (i == 3));
            QVERIFY(b.valueRect.left() > b.bar.right() && b.valueRect.right() <= rect.right() + 0.01);
            QVERIFY(b.nameRect.right() <= b.plot.left());
        }
        // Too low for one column of eight: two of four, side by side.
        const ChartData eight{std::vector<ChartBar>(8, {"Cholesterol", 120})};
        const ChartGeometry low = LayoutNutrientChart(eight, QRectF(0, 0, 600, 90), font);
        QCOMPARE(low.columns, 2);
        QCOMPARE(low.bars[4].bar.top(), low.bars[0].bar.top());
        QVERIFY(low.bars[3].valueRect.right() <= low.bars[4].nameRect.left());
        // However low, no row is lost below the chart.
        for (const qreal height : {90.0, 40.0, 34.0})
            QVERIFY(LayoutNutrientChart(eight, QRectF(0, 0, 600, height), font).bars[7].nameRect.bottom() <= height);

        // Beyond 100 % the bar is hatched: dark strokes stand in it that the
        // part within 100 % does not have.
        NutrientChart chart;
        chart.resize(640, 260);
        chart.SetData(data);
        const QImage image = chart.grab().toImage();
        const qreal margin = ChartMargin(chart.fontMetrics().height());
        const ChartBarGeometry fat =
            LayoutNutrientChart(data, QRectF(chart.rect()).adjusted(margin, 2, -margin, -2), chart.font()).bars[2];
        const QRectF within(QPointF(fat.bar.left(), fat.bar.top()), QPointF(fat.x100 - 4, fat.bar.bottom()));
        QCOMPARE(DarkShare(image, within.toAlignedRect().adjusted(3, 3, -3, -3), 60), 0.0);
        const QRectF beyond(QPointF(fat.x100 + 4, fat.bar.top()), fat.bar.bottomRight());
        QVERIFY(DarkShare(image, beyond.toAlignedRect().adjusted(3, 3, -3, -3), 60) > 0.1);
    }

    void TheFileMenuPrintsPreviewsAndExportsTheReports()
    {
        ProgramHarness h;
        h.StartOn(DataFileBytes(SampleTable()), {});
        h.folder.Write("day.pwl", kDay);
        const auto menu = [&h](const char* name) { return Find<QAction>(*h.main, QString::fromLatin1(name)); };
        const auto menus = {menu("mnuPrintPreview"), menu("mnuExportPdf"), menu("mnuExportCsv"), menu("mnuList"),
                            menu("mnuPrintAnalysis")};
        const auto enabled = [&menus](bool on) {
            return std::all_of(menus.begin(), menus.end(), [on](QAction* a) { return a->isEnabled() == on; });
        };
        const NutrientChart& chart = FindOnly<NutrientChart>(*h.main);
        QVERIFY(enabled(false));
        h.fakes.files.answers.push_back(QString::fromStdString(h.folder.File("day.pwl")));
        menu("mnuOpen")->trigger();
        QCOMPARE(h.session.foodList.Count(), 2);
        QVERIFY(enabled(true));
        // The chart shows the day at once.
        QCOMPARE(chart.Data().bars.at(0), (ChartBar{"Calories", 21}));
        QCOMPARE(chart.Data().bars.at(6), (ChartBar{"Calcium", 87}));
        // In the window's least size every bar stands inside the chart, its
        // texts at least 8 pixels high.
        h.main->resize(1, 1);
        Find<QTabWidget>(*h.main, QStringLiteral("tabMain"))->setCurrentIndex(2);
        QCoreApplication::processEvents();
        const ChartGeometry least = LayoutNutrientChart(chart.Data(), chart.Area(), chart.font());
        QCOMPARE(least.bars.size(), size_t(8));
        for (const ChartBarGeometry& b : least.bars)
            QVERIFY2(chart.Area().contains(b.nameRect.united(b.bar).united(b.valueRect)),
                     qPrintable(QStringLiteral("%1 at %2 in %3 high").arg(b.name).arg(b.nameRect.bottom()).arg(chart.Area().height())));
        QVERIFY(QFontMetricsF(least.font).height() >= 8);
        // Every page shows its texts whole.
        for (int page : {0, 1, 2}) {
            Find<QTabWidget>(*h.main, QStringLiteral("tabMain"))->setCurrentIndex(page);
            QCoreApplication::processEvents();
            QCOMPARE(ClippedTexts(*h.main), QStringList());
        }
        h.fakes.prompts.messages.clear();

        RecordingPrinter& printer = h.fakes.printer;
        menu("mnuPrintAnalysis")->trigger();
        menu("mnuList")->trigger();
        menu("mnuPrintPreview")->trigger();
        QCOMPARE(printer.printed.size(), size_t(2));
        QCOMPARE(printer.printed[0].title, std::string(texts::kAnalysisReportTitle));
        QVERIFY(printer.printed[1].landscape && printer.printed[1].personName == "Ann Example");
        QCOMPARE(printer.previewed.size(), size_t(1));
        QVERIFY(h.fakes.prompts.messages.empty() && h.fakes.files.saveRequests.empty());

        // Without a printer the user is asked first; No saves nothing, Yes
        // saves a PDF under the name proposed.
        printer.hasPrinter = false;
        const QString date = QDate::currentDate().toString(Qt::ISODate);
        h.fakes.prompts.answers = {MsgResult::No, MsgResult::Yes};
        h.fakes.files.answers.push_back(QString::fromStdString(h.folder.File("report.pdf")));
        menu("mnuPrintAnalysis")->trigger();
        QVERIFY(h.fakes.files.saveRequests.empty());
        menu("mnuPrintAnalysis")->trigger();
        QCOMPARE(h.fakes.prompts.messages.size(), size_t(2));
        const RecordedMessage& ask = h.fakes.prompts.messages[0];
        QVERIFY(ask.text == texts::kNoPrinter && ask.buttons == MsgButtons::YesNo && ask.title == "Print");
        QCOMPARE(h.fakes.files.saveRequests.at(0).proposedName, "Ann Example " + date + ".pdf");
        QCOMPARE(h.fakes.files.saveRequests.at(0).filter, QStringLiteral("PDF documents (*.pdf)|*.pdf"));
        QVERIFY(h.folder.Read("report.pdf").rfind("%PDF", 0) == 0);
        QCOMPARE(printer.printed.size(), size_t(2));

        // CSV as the list holds it; a file that cannot be written is told.
        const QString unwritable = QString::fromStdString(h.folder.File("missing/day.pdf"));
        h.fakes.files.answers = {QString::fromStdString(h.folder.File("day.csv")), unwritable};
        menu("mnuExportCsv")->trigger();
        QCOMPARE(h.fakes.files.saveRequests.back().proposedName, "Ann Example " + date + ".csv");
        QCOMPARE(h.folder.Read("day.csv"), FoodListCsv(h.session.foodList));
        menu("mnuExportPdf")->trigger();
        QCOMPARE(h.fakes.prompts.messages.back().text, "The report could not be written to\r\n" + unwritable);
        // The program's own files are never an export's output.
        const QString database = QString::fromStdString(h.folder.File("DATA.DAT"));
        const std::string data = h.folder.Read("data.dat");
        h.fakes.files.answers = {database};
        menu("mnuExportCsv")->trigger();
        QCOMPARE(h.fakes.prompts.messages.back().text, database + "\r\nis not written: it is Platewell's own file data.dat.");
        QCOMPARE(h.folder.Read("data.dat"), data);

        menu("mnuClearList")->trigger();
        QVERIFY(enabled(false));
        QCOMPARE(chart.Data().bars.at(0), (ChartBar{"Calories", 0}));
    }

    void TheCommandLineNamesTheListAndTheExport()
    {
        const struct {
            QStringList arguments;
            CommandAction action;
            QString output;
            QString list;
        } cases[] = {
            {{}, CommandAction::Window, {}, {}},
            {{"-platform", "offscreen", "-reverse", "day.pwl"}, CommandAction::Window, {}, "day.pwl"},
            {{"day.pwl", "--export-csv=o.csv"}, CommandAction::ExportCsv, "o.csv", "day.pwl"},
            {{"a.pwl", "b.pwl"}, CommandAction::Error, {}, {}},
            {{"--export-pdf"}, CommandAction::Error, {}, {}},
            {{"-h"}, CommandAction::Help, {}, {}},
        };
        for (const auto& c : cases) {
            const CommandLineRequest request = ParseCommandLine(QStringList{"platewell"} + c.arguments);
            QVERIFY2(request.action == c.action, qPrintable(c.arguments.join(' ')));
            QCOMPARE(request.output, c.output);
            QCOMPARE(request.listFile, c.list);
        }
    }

    void TheCommandLineNeverWritesOverWhatItMustNotAndEscapesFileBytes()
    {
        const Exports run;
        // Through the shell, so names and redirections are the bytes given.
        const auto shell = [&](const QString& script) {
            return run.Run({}, {QStringLiteral("-c"), QStringLiteral("cd '%1' && %2").arg(run.folder.Path().c_str(), script)});
        };
        const QString notWritten = QStringLiteral("\nis not written: it %1.\n");
        const std::pair<QStringList, QString> refused[] = {
            {{"--export-pdf", run.File("day.pwl"), run.File("day.pwl")},
             run.File("day.pwl") + notWritten.arg("is the file the report is made from")},
            {{"--export-csv", run.File("data.dat"), run.File("day.pwl")},
             run.File("data.dat") + notWritten.arg("is Platewell's own file data.dat")},
            {{"--export-csv", run.File("PW.INI"), run.File("day.pwl")},
             run.File("PW.INI") + notWritten.arg("is Platewell's own file pw.ini")},
        };
        for (const auto& [arguments, error] : refused) {
            const auto [status, out, err] = run.Run(arguments);
            QCOMPARE(status, 1);
            QCOMPARE(err, error);
        }
        QCOMPARE(run.folder.Read("day.pwl"), kDay);
        QCOMPARE(run.folder.Read("data.dat"), run.data);
        QVERIFY(!run.folder.Exists("PW.INI") && !run.folder.Exists("pw.ini"));

        // Names in any encoding are read and written as their bytes; what is
        // not text is escaped in messages.
        run.folder.Write("caf\xe9.pwl", kDay);
        auto [status, out, err] = shell(QStringLiteral("./platewell --export-csv \"$(printf 'out\\351.csv')\" "
                                                       "\"$(printf 'caf\\351.pwl')\""));
        QCOMPARE(status, 0);
        QVERIFY(!run.folder.Exists("out\xef\xbf\xbd.csv"));
        const OpenedAnalysis day = OpenAnalysis(ParseAnalysisBytes(kDay), SampleTable(), QDate::currentDate().year());
        QCOMPARE(run.folder.Read("out\xe9.csv"), FoodListCsv(day.list));
        std::tie(status, out, err) = shell(QStringLiteral("./platewell --export-text \"$(printf 'none\\351\\033.pwl')\""));
        QCOMPARE(status, 1);
        QCOMPARE(err, QStringLiteral("none\\xe9\\x1b.pwl: No such file or directory\n"));

        // Control characters of a file's texts never reach the terminal raw:
        // C0 ones make a line bad, C1 ones (a CSI among them) are escaped.
        run.folder.Write("c1.pwl", "NAME:Ann\x9b" "2J\x85\r\nYOB:62\r\nHEIGHT:64\r\nWEIGHT:150\r\n"
                                   "ITEM: 3 \t1\tSnacks\x9b\tChips\tPotato\t1 oz\r\n");
        QProcess raw;
        raw.start(run.File("platewell"), {"--export-text", run.File("c1.pwl")});
        QVERIFY(raw.waitForFinished(60000));
        const QByteArray bytes = raw.readAllStandardOutput() + raw.readAllStandardError();
        QCOMPARE(raw.exitCode(), 0);
        QVERIFY2(bytes.contains("Ann\\xc2\\x9b2J\\xc2\\x85") && bytes.contains("Snacks\\xc2\\x9b/"), bytes.constData());
        for (char c = 0; c < 0x20; ++c)
            QVERIFY(c == '\n' || c == '\t' || !bytes.contains(c));
        QVERIFY(!bytes.contains("\xc2\x9b") && !bytes.contains("\xc2\x85"));

        // A list far larger than any list is refused before it is read, within
        // a memory limit the whole file would not fit.
        run.folder.Write("huge.pwl", "NAME:Ann\r\n" + std::string(100u << 20, '\n'));
        std::tie(status, out, err) = shell(QStringLiteral("ulimit -v 1500000; ./platewell --export-text huge.pwl"));
        QCOMPARE(status, 1);
        QCOMPARE(err, QStringLiteral("huge.pwl\nis not a valid Platewell\n.pwl file.\n"));

        // Devices made here (never in /dev) are written in place: a full one
        // fails the export, and stays the device it was.
        if (::geteuid() != 0)
            QSKIP("making device nodes needs root");
        QVERIFY(::mknod(run.folder.File("full").c_str(), S_IFCHR | 0666, makedev(1, 7)) == 0);
        QVERIFY(::mknod(run.folder.File("null").c_str(), S_IFCHR | 0666, makedev(1, 3)) == 0);
        for (const char* option : {"--export-csv", "--export-pdf"}) {
            std::tie(status, out, err) = run.Run({option, run.File("full"), run.File("day.pwl")});
            QVERIFY2(status == 1 && err.endsWith(run.File("full") + "\n"), qPrintable(err));
            std::tie(status, out, err) = run.Run({option, run.File("null"), run.File("day.pwl")});
            QCOMPARE(status, 0);
        }
        for (const char* command : {"./platewell --export-text day.pwl > full", "./platewell --rich-in fiber > full"}) {
            std::tie(status, out, err) = shell(QString::fromLatin1(command));
            QCOMPARE(status, 1);
            QVERIFY2(err.endsWith(QStringLiteral("standard output: No space left on device\n")), qPrintable(err));
        }
        struct stat info {};
        QVERIFY(::stat(run.folder.File("full").c_str(), &info) == 0 && S_ISCHR(info.st_mode));
    }

    void TheCommandLineExportsWithoutADisplay()
    {
        const Exports run;
        const QString lost =
            QStringLiteral("\"Snacks/Chips/Potato/1 oz\"\nis no longer in the database.  It will not be imported.\n");

        auto [status, out, err] = run.Run({"--export-csv", run.File("day.csv"), run.File("day.pwl")});
        QVERIFY(status == 0 && err == lost);
        // The list as the window opens it, written as the window's export writes it.
        const OpenedAnalysis opened = OpenAnalysis(ParseAnalysisBytes(kDay), SampleTable(), QDate::currentDate().year());
        QCOMPARE(run.folder.Read("day.csv"), FoodListCsv(opened.list));

        // The report as text: the person, the day's nutrients and its foods.
        std::tie(status, out, err) = run.Run({"--export-text", run.File("day.pwl")});
        QVERIFY(status == 0 && err == lost);
        const std::string today = QDate::currentDate().toString(Qt::ISODate).toStdString();
        QCOMPARE(out.toStdString(),
                 ReportText(BuildAnalysisReport({opened.profile, opened.dailyValues, opened.list, today})));

        std::tie(status, out, err) = run.Run({"--export-pdf", run.File("day.pdf"), run.File("day.pwl")});
        QCOMPARE(status, 0);
        const QString pdf = PdfText(run.File("day.pdf")).simplified();
        for (const char* text : {"Ann Example", "2494 mg", "Page 1 of 1", "Dairy and Eggs / Milk / Whole"})
            QVERIFY2(pdf.contains(text), text);

        // A file that is not a list, a missing one, an output that cannot be
        // written, a wrong command line: a message and a failure status.
        const QString usage = "\nTry 'platewell --help' for more information.\n";
        const std::pair<QStringList, QString> failures[] = {
            {{"--export-csv", run.File("bad.csv"), run.File("binary.pwl")},
             run.File("binary.pwl") + "\nis not a valid Platewell\n.pwl file.\n"},
            {{"--export-text", run.File("none.pwl")}, run.File("none.pwl") + ": No such file or directory\n"},
            {{"--export-text", run.File("tips.txt")}, run.File("tips.txt") + "\nis not a valid Platewell\n.pwl file.\n"},
            {{"--export-pdf", run.File("no/day.pdf"), run.File("day.pwl")},
             lost + "The report could not be written to\n" + run.File("no/day.pdf") + "\n"},
            {{"--export-csv", run.File("no/day.csv"), run.File("day.pwl")},
             lost + "The food list could not be written to\n" + run.File("no/day.csv") + "\n"},
            {{"--export-csv", run.File("x.csv")}, "The export needs a list file (.pwl)." + usage},
            {{"--export-pdf", "a.pdf", "--export-csv", "b.csv", run.File("day.pwl")},
             "Give one export option at a time." + usage},
        };
        for (const auto& [arguments, error] : failures) {
            std::tie(status, out, err) = run.Run(arguments);
            QVERIFY2(status != 0, qPrintable(arguments.join(' ')));
            QCOMPARE(err, error);
        }
        QVERIFY(!std::filesystem::exists(run.folder.File("bad.csv")));

        std::tie(status, out, err) = run.Run({"--version"});
        QVERIFY(status == 0 && out == "Platewell 2.04W\n");
        std::tie(status, out, err) = run.Run({"--help"});
        QCOMPARE(status, 0);
        for (const char* option : {"--export-pdf <OUT.pdf>", "--export-csv <OUT.csv>", "--export-text", "--version"})
            QVERIFY2(out.contains(option), qPrintable(out));

        // The program folder is only read.
        QCOMPARE(run.folder.Read("data.dat"), run.data);
        for (const char* name : {"pw.ini", "default.pwp"})
            QVERIFY(!std::filesystem::exists(run.folder.File(name)));
    }
};

QTEST_MAIN(ReportOutputTest)
#include "ReportOutputTest.moc"

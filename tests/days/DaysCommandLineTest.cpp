// The period exports of the built program, run as a separate process with
// no display and no platform chosen, on a folder of diary files with one
// bad file among them.
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>
#include <filesystem>
#include <sys/stat.h>

#include "Fixtures.h"
#include "TempFolder.h"
#include "WindowTestSupport.h"
#include "days/DayFiles.h"
#include "days/PeriodReport.h"
#include "fooddb/DataFile.h"

using namespace pw;
using namespace pw::test;

namespace {

constexpr const char* kAnn = "NAME:Ann Example\r\nYOB:62\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:150\r\nSEX: 0 \r\nLIFESTYLE: 0 \r\n";

// The pages of a PDF drawn at 50 dpi as PNG files named after prefix.
QStringList PdfPages(const QString& pdf, const QString& prefix)
{
    QProcess process;
    process.start(QStringLiteral("pdftoppm"), {QStringLiteral("-r"), QStringLiteral("50"), QStringLiteral("-png"), pdf, prefix});
    if (!process.waitForFinished(30000) || process.exitCode() != 0)
        return {};
    const QFileInfo info(prefix);
    QStringList pages;
    for (const QFileInfo& file : QDir(info.path()).entryInfoList({info.fileName() + QStringLiteral("-*.png")}, QDir::Files, QDir::Name))
        pages << file.filePath();
    return pages;
}

struct Program : ProgramCopy {
    Program() : ProgramCopy(PLATEWELL_EXE)
    {
        std::filesystem::create_directories(folder.File("diary"));
        std::filesystem::create_directories(folder.File("broken"));
        const std::string milk = "ITEM: 6 \t1\tDairy and Eggs\tMilk\tWhole\t1 cup\r\n";
        const std::string bread = "ITEM: 0 \t2\tBakery and Grains\tBread\tWhite\t1 slice\r\n";
        folder.Write("diary/2026-11-01 breakfast.pwl", kAnn + milk);
        folder.Write("diary/2026-11-01 supper.pwl", kAnn + bread + "ITEM: 3 \t1\tSnacks\tChips\tPotato\t1 oz\r\n");
        folder.Write("diary/2026-11-04.pwl", kAnn + milk + bread);
        folder.Write("diary/2026-11-05 oops.pwl", "A note, not a list\r\n");
        folder.Write("diary/notes.txt", kAnn + milk);  // not a list file's name: not in the folder's days
        folder.Write("broken/2026-11-02.pwl", std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16));
    }
};

}  // namespace

class DaysCommandLineTest : public QObject {
    Q_OBJECT

private slots:
    void PeriodExportsWithoutADisplay()
    {
        const Program run;
        const QString told = run.File("diary/2026-11-05 oops.pwl") + ": is not a valid Platewell .pwl file\n" +
                             "No longer in the database, left out: Snacks/Chips/Potato/1 oz: 2026-11-01\n";
        const Period period = ReadPeriod({run.folder.File("diary")}, SampleTable(), QDate::currentDate().year());
        QCOMPARE(period.days.size(), std::size_t(2));

        auto [status, out, err] = run.Run({"--export-days-csv", run.File("days.csv"), run.File("diary")});
        QCOMPARE(err, told);
        QCOMPARE(status, 0);
        QCOMPARE(run.folder.Read("days.csv"), PeriodDaysCsv(period));

        // A file and a folder given together; the foods of both.
        std::tie(status, out, err) = run.Run({"--export-days-foods-csv", run.File("foods.csv"),
                                              run.File("diary/2026-11-04.pwl"), run.File("broken")});
        QCOMPARE(status, 0);
        QCOMPARE(err, run.File("broken/2026-11-02.pwl") + ": is not a valid Platewell .pwl file\n");
        const QStringList rows = QString::fromUtf8(run.folder.Read("foods.csv").c_str()).split("\r\n", Qt::SkipEmptyParts);
        QCOMPARE(rows.size(), 3);
        QVERIFY(rows[1].startsWith("2026-11-04,2026-11-04.pwl,1,1 cup,Dairy and Eggs,Milk,Whole,148,"));

        std::tie(status, out, err) = run.Run({"--export-days-text", run.File("diary")});
        QCOMPARE(status, 0);
        for (const char* text : {"2 days logged from 2026-11-01 to 2026-11-04 (4 calendar days).", "2026-11-01",
                                 "2026-11-04", "Average", "Days over DV", "Share"})
            QVERIFY2(out.contains(text), qPrintable(QString(text) + "\n" + out));

        // The PDF's text: the period, every day and the averages, no word broken.
        std::tie(status, out, err) = run.Run({"--export-days-pdf", run.File("period.pdf"), run.File("diary")});
        QCOMPARE(status, 0);
        const QString pdf = PdfText(run.File("period.pdf"));
        const QStringList words = pdf.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
        for (const char* word : {"2026-11-01", "2026-11-04", "Average", "Cholesterol", "Carbohydrates", "logged",
                                 "Ann", "Snacks/Chips/Potato/1", "Whole"})
            QVERIFY2(words.contains(QString::fromLatin1(word)), qPrintable(QString(word) + "\n" + pdf));
        QVERIFY2(pdf.simplified().contains("2 days logged from 2026-11-01 to 2026-11-04 (4 calendar days)."),
                 qPrintable(pdf));
        QVERIFY(pdf.contains(QRegularExpression("Page 1 of [2-9]")));
        // The PDF as pictures: as many pages as its footer says, each with
        // ink inside its margins and none beyond them.
        const QStringList pages = PdfPages(run.File("period.pdf"), run.File("page"));
        QVERIFY(pdf.contains(QStringLiteral("Page 1 of %1").arg(pages.size())));
        for (const QString& page : pages) {
            const QImage image(page);
            QVERIFY(!image.isNull());
            const int margin = 50 * 12 / 25;  // 12 mm at 50 dpi, inside the 15 mm margins
            QCOMPARE(DarkShare(image, QRect(0, 0, margin, image.height())), 0.0);
            QCOMPARE(DarkShare(image, QRect(image.width() - margin, 0, margin, image.height())), 0.0);
            QVERIFY(DarkShare(image, image.rect().adjusted(margin, margin, -margin, -margin)) > 0.01);
        }

        // Nothing readable, an output that cannot be written, a wrong command
        // line: a message and a failure status, nothing written.
        const QString usage = "\nTry 'platewell --help' for more information.\n";
        const std::tuple<QStringList, int, QString> failures[] = {
            {{"--export-days-csv", run.File("x.csv"), run.File("broken"), run.File("gone.pwl")}, 1,
             run.File("gone.pwl") + ": No such file or directory\n" + run.File("broken/2026-11-02.pwl") +
                 ": is not a valid Platewell .pwl file\nNo list file was read: there is no day to export.\n"},
            {{"--export-days-csv", run.File("no/x.csv"), run.File("diary/2026-11-04.pwl")}, 1,
             "The report could not be written to\n" + run.File("no/x.csv") + ": No such file or directory\n"},
            {{"--export-days-pdf", run.File("no/x.pdf"), run.File("diary/2026-11-04.pwl")}, 1,
             "The report could not be written to\n" + run.File("no/x.pdf") + ": No such file or directory\n"},
            // Never over one of the lists it reads, nor the program's own files.
            {{"--export-days-csv", run.File("diary/2026-11-04.pwl"), run.File("diary")}, 1,
             run.File("diary/2026-11-04.pwl") + "\nis not written: it is the file the report is made from.\n"},
            {{"--export-days-pdf", run.File("data.dat"), run.File("diary")}, 1,
             run.File("data.dat") + "\nis not written: it is Platewell's own file data.dat.\n"},
            {{"--export-days-csv", run.File("x.csv")}, 2, "The export needs list files (.pwl) or folders of them." + usage},
            {{"--export-days-csv", run.File("x.csv"), "--export-days-text", run.File("diary")}, 2,
             "Give one export option at a time." + usage},
        };
        for (const auto& [arguments, expectedStatus, error] : failures) {
            std::tie(status, out, err) = run.Run(arguments);
            QCOMPARE(err, error);
            QCOMPARE(status, expectedStatus);
        }
        QVERIFY(!run.folder.Exists("x.csv"));

        // The program folder is only read.
        QCOMPARE(run.folder.Read("data.dat"), run.data);
        for (const char* name : {"pw.ini", "default.pwp"})
            QVERIFY(!run.folder.Exists(name));
    }
};

QTEST_MAIN(DaysCommandLineTest)
#include "DaysCommandLineTest.moc"

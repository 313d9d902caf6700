// Makes the program's desktop artwork from the program itself:
//   platewell_artwork icons <folder>
//     the hicolor icons: <folder>/scalable/apps/platewell.svg and
//     <folder>/<N>x<N>/apps/platewell.png, painted from the logo's mark;
//   platewell_artwork screenshot <file.png> <folder with data.dat>
//     the main window on the delivered database with a day's list opened,
//     as a file manager's double click opens it.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>
#include <QTabWidget>
#include <QTemporaryDir>
#include <cstdio>
#include <string>

// The window seams of a run nobody answers: the fakes the window tests use.
#include "FakeSeams.h"
#include "analysis/ProfileFile.h"
#include "core/LineFile.h"
#include "core/Text.h"
#include "shell/views/DesktopIntegration.h"
#include "core/views/ErrorGuard.h"
#include "shell/views/Logo.h"
#include "shell/views/MainWindow.h"
#include "shell/views/ProgramWindows.h"
#include "shell/Session.h"
#include "shell/views/SplashWindow.h"

namespace pw {
namespace {

constexpr int kIconSizes[] = {16, 22, 24, 32, 48, 64, 128, 256};
constexpr const char* kIconName = "platewell";

bool MakeFolder(const QString& folder)
{
    if (QDir().mkpath(folder))
        return true;
    std::fprintf(stderr, "cannot create %s\n", qPrintable(folder));
    return false;
}

int MakeIcons(const QString& folder)
{
    const QString svgFolder = folder + QStringLiteral("/scalable/apps");
    if (!MakeFolder(svgFolder))
        return 1;
    QSvgGenerator svg;
    svg.setFileName(svgFolder + QLatin1Char('/') + QLatin1String(kIconName) + QStringLiteral(".svg"));
    svg.setSize(QSize(256, 256));
    svg.setViewBox(QRectF(0, 0, 256, 256));
    svg.setTitle(QStringLiteral("Platewell"));
    svg.setDescription(QStringLiteral("A plate seen from above holding a leaf"));
    {
        QPainter painter;
        if (!painter.begin(&svg)) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(svg.fileName()));
            return 1;
        }
        PaintLogoMark(painter, LogoMarkRect(QRectF(0, 0, 256, 256)));
    }
    for (int side : kIconSizes) {
        const QString pngFolder = folder + QStringLiteral("/%1x%1/apps").arg(side);
        if (!MakeFolder(pngFolder))
            return 1;
        QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        {
            QPainter painter(&image);
            PaintLogoMark(painter, LogoMarkRect(QRectF(0, 0, side, side)));
        }
        const QString file = pngFolder + QLatin1Char('/') + QLatin1String(kIconName) + QStringLiteral(".png");
        if (!image.save(file, "PNG")) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
            return 1;
        }
    }
    return 0;
}

// "ITEM:" + index in print form + TAB-separated quantity and tier texts.
std::string ItemLine(const FoodTable& table, int index, const std::string& quantity)
{
    return "ITEM: " + std::to_string(index) + " \t" + quantity + "\t" + table.Group(index) + "\t" +
           table.Subgroup(index) + "\t" + table.Description(index) + "\t" + table.Measure(index);
}

// The first food of the subgroup whose description and measure start with
// the given texts, -1 for none.
int FindFood(const FoodTable& table, const std::string& subgroup, const std::string& description,
             const std::string& measure)
{
    for (int i = 0; i < table.Count(); ++i)
        if (table.Subgroup(i) == subgroup && table.Description(i).rfind(description, 0) == 0 &&
            table.Measure(i).rfind(measure, 0) == 0)
            return i;
    return -1;
}

int MakeScreenshot(const QString& file, const QString& dataFolder)
{
    QTemporaryDir folder(QDir::tempPath() + QStringLiteral("/platewell-XXXXXX"));
    if (!folder.isValid())
        return 1;
    for (const char* name : {"data.dat", "tips.txt"}) {
        const QString from = dataFolder + QLatin1Char('/') + QLatin1String(name);
        if (!QFile::copy(from, folder.filePath(QLatin1String(name)))) {
            std::fprintf(stderr, "cannot copy %s\n", qPrintable(from));
            return 1;
        }
    }
    const std::string programFolder = QFile::encodeName(folder.path()).toStdString();
    WriteFileAtomic(JoinPath(programFolder, "pw.ini"), "FIRST RUN:False\r\nSHOW TIPS:False\r\n");

    test::FakeSeams fakes;
    Session session;
    session.programFolder = programFolder;
    ErrorGuard guard(session.ended, fakes.prompts);
    ProgramWindows windows(session, fakes.seams, guard);
    if (!windows.LoadSplash())
        return 1;
    windows.splash->StartMain();
    if (!windows.main || guard.Failed())
        return 1;
    MainWindow& window = *windows.main;

    // A day's list, saved as the program saves it and opened from the file.
    const FoodTable& table = session.foodTable;
    ProfileInputs person{"Alex", "88", "67", "142", kMeasurementEnglish, kSexFemale, kLifestyleLight};
    std::vector<std::string> lines = ProfileFileLines(person);
    struct Eaten {
        const char* subgroup;
        const char* description;
        const char* measure;
        const char* quantity;
    };
    const Eaten day[] = {
        {"Cereals", "Oats, regular and quick and instant, unenriched, cooked with water", "1 cup", "1"},
        {"Bananas", "Raw", "1 medium", "1"},
        {"Egg", "Whole, cooked, scrambled", "1 large", "2"},
        {"Bread", "Whole-wheat, commercially prepared", "1 slice", "2"},
        {"Chicken", "Broilers or fryers, breast, meat and skin, cooked, roasted", "1/2 breast", "1"},
        {"Rice", "Brown, long-grain, cooked", "1 cup", "3/4"},
        {"Broccoli", "Cooked, boiled, drained, without salt", "1/2 cup", "1"},
        {"Apples", "Raw, with skin", "1 medium", "1"},
        {"Yogurt", "Fruit variety, nonfat", "1 container (6 oz)", "1"},
    };
    for (const Eaten& food : day)
        if (const int index = FindFood(table, food.subgroup, food.description, food.measure); index >= 0)
            lines.push_back(ItemLine(table, index, food.quantity));
    const QString list = folder.filePath(QStringLiteral("Tuesday.pwl"));
    WriteFileAtomic(QFile::encodeName(list).toStdString(), LinesToBytes(lines));
    guard.Run([&] { window.OpenDocument(list); });
    auto* tabs = window.findChild<QTabWidget*>(QStringLiteral("tabMain"));
    if (tabs && tabs->isTabEnabled(1))
        tabs->setCurrentIndex(1);

    window.resize(1180, 700);
    window.show();
    QApplication::processEvents();
    for (const test::RecordedMessage& message : fakes.prompts.messages)
        std::fprintf(stderr, "message: %s\n", qPrintable(message.text));
    if (!fakes.prompts.messages.empty() || guard.Failed())
        return 1;
    if (!window.grab().save(file, "PNG")) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
        return 1;
    }
    session.ended = true;  // nothing of this run is written back
    return 0;
}

}  // namespace
}  // namespace pw

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() == 3 && args[1] == QLatin1String("icons"))
        return pw::MakeIcons(args[2]);
    if (args.size() == 4 && args[1] == QLatin1String("screenshot"))
        return pw::MakeScreenshot(args[2], args[3]);
    std::fprintf(stderr, "usage: platewell_artwork icons FOLDER | screenshot FILE.png DATA-FOLDER\n");
    return 2;
}

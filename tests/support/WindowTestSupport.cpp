#include "WindowTestSupport.h"

#include <QProcess>
#include <filesystem>
#include <QImage>

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <sys/inotify.h>
#include <unistd.h>

#include "Fixtures.h"

namespace pw::test {

std::string QuietSettings(const std::string& extraLines)
{
    return "FIRST RUN:False\r\nSHOW TIPS:False\r\n" + extraLines;
}

QStringList ClippedTexts(const QWidget& root)
{
    QStringList clipped;
    for (const QLabel* label : root.findChildren<QLabel*>()) {
        if (!label->isVisibleTo(&root) || label->text().isEmpty())
            continue;
        const QSize need = label->wordWrap() ? QSize(0, label->heightForWidth(label->width()))
                                             : label->minimumSizeHint();
        if (label->width() < need.width() || label->height() < need.height())
            clipped << label->objectName() + ':' + label->text();
    }
    for (const QPushButton* button : root.findChildren<QPushButton*>()) {
        if (!button->isVisibleTo(&root))
            continue;
        const QSize text = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
        if (button->width() < text.width() + 4 || button->height() < text.height())
            clipped << button->objectName() + ':' + button->text();
    }
    return clipped;
}

ProgramHarness::ProgramHarness() { session.programFolder = folder.Path(); }

ProgramHarness::~ProgramHarness() = default;

bool ProgramHarness::LoadSplash() { return windows.LoadSplash(); }

bool ProgramHarness::Start()
{
    if (!LoadSplash())
        return false;
    splash->StartMain();
    if (tip && !main)
        Find<QPushButton>(*tip, QStringLiteral("cmdOK"))->click();
    return main != nullptr && !guard.Failed();
}

void ProgramHarness::StartOn(const std::string& dataBytes, const std::string& defaultProfile,
                             const std::string& settings)
{
    WriteProgramFolder(folder.Path(), dataBytes, settings);
    if (!defaultProfile.empty())
        folder.Write("default.pwp", defaultProfile);
    if (!Start())
        qFatal("the program did not start");
}

QStringList ComboItems(const QComboBox* combo)
{
    QStringList items;
    for (int i = 0; i < combo->count(); ++i)
        items << combo->itemText(i);
    return items;
}

void ChooseFood(FoodChooserPage& page, const QStringList& tiers)
{
    Find<QPushButton>(page, QStringLiteral("btnNewItem"))->click();
    for (int t = 0; t < 4; ++t) {
        auto* combo = Find<QComboBox>(page, QStringLiteral("comTier%1").arg(t));
        const int i = combo->findText(tiers[t]);
        if (combo->currentIndex() != i) {
            combo->setCurrentIndex(i);
            emit combo->activated(i);
        }
    }
}

FolderWatch::FolderWatch(const std::string& folder)
{
    fd_ = inotify_init1(IN_NONBLOCK);
    if (fd_ >= 0)
        inotify_add_watch(fd_, folder.c_str(), IN_MOVED_TO | IN_CLOSE_WRITE);
}

FolderWatch::~FolderWatch()
{
    if (fd_ >= 0)
        ::close(fd_);
}

std::vector<std::string> FolderWatch::Written()
{
    std::vector<std::string> names;
    alignas(inotify_event) char buffer[8192];
    for (;;) {
        const ssize_t got = ::read(fd_, buffer, sizeof buffer);
        if (got <= 0)
            break;
        for (char* p = buffer; p < buffer + got;) {
            auto* event = reinterpret_cast<inotify_event*>(p);
            std::string name = event->len ? event->name : "";
            // Files are written to a temporary name and renamed: count the
            // renames, and direct writes of any file not named as temporary.
            const bool temporary = name.find(".tmp") != std::string::npos;
            if ((event->mask & IN_MOVED_TO) || ((event->mask & IN_CLOSE_WRITE) && !temporary))
                names.push_back(name);
            p += sizeof(inotify_event) + event->len;
        }
    }
    return names;
}

std::tuple<int, QString, QString> RunWithoutDisplay(const QString& program, const QStringList& arguments)
{
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        env.remove(QString::fromLatin1(name));
    process.setProcessEnvironment(env);
    process.start(program, arguments);
    if (!process.waitForFinished(60000))
        return {-1, {}, QStringLiteral("did not finish")};
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()), QString::fromUtf8(process.readAllStandardError())};
}

ProgramCopy::ProgramCopy(const char* executable) : data(DataFileBytes(SampleTable()))
{
    std::filesystem::copy_file(executable, folder.File("platewell"));
    WriteProgramFolder(folder.Path(), data);
}

double DarkShare(const QImage& image, const QRect& r, int gray)
{
    int dark = 0, all = 0;
    for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x, ++all)
            dark += qGray(image.pixel(x, y)) < gray;
    return all ? double(dark) / all : 0.0;
}

QString PdfText(const QString& path)
{
    QProcess process;
    process.start(QStringLiteral("pdftotext"), {QStringLiteral("-enc"), QStringLiteral("UTF-8"), path, QStringLiteral("-")});
    if (!process.waitForFinished(30000) || process.exitCode() != 0)
        return QStringLiteral("pdftotext failed");
    return QString::fromUtf8(process.readAllStandardOutput());
}

}  // namespace pw::test

#pragma once
// A whole program on fakes: a temporary program folder, the session, the
// splash and the main window, started as the real program starts them.
#include <QObject>
#include <QStringList>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "FakeSeams.h"
#include "TempFolder.h"
#include "foodlist/views/FoodChooserPage.h"
#include "core/views/ErrorGuard.h"
#include "shell/views/MainWindow.h"
#include "shell/views/ProgramWindows.h"
#include "shell/Session.h"
#include "shell/views/SplashWindow.h"

class QComboBox;
class QImage;
class QRect;

namespace pw::test {

// pw.ini text that skips the first-run offer and the tips.
std::string QuietSettings(const std::string& extraLines = {});

// A valid default profile: Ann, born 1962, 64 inches, 119 pounds, female,
// sedentary.
inline const std::string kAnnProfile =
    "NAME:Ann\r\nYOB:62\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:119\r\nSEX: 0 \r\nLIFESTYLE: 0 \r\n";

// The control, menu item or window named name under root, found as checks
// from outside the program find it; the test program ends when there is none.
template <class T = QWidget>
T* Find(const QObject& root, const QString& name)
{
    T* found = root.findChild<T*>(name);
    if (!found)
        qFatal("no %s named %s under %s", T::staticMetaObject.className(), qPrintable(name),
               qPrintable(root.objectName()));
    return found;
}
// The one object of type T under root (a page, a command set).
template <class T>
T& FindOnly(const QObject& root)
{
    const QList<T*> found = root.findChildren<T*>();
    if (found.size() != 1)
        qFatal("%lld objects of type %s", static_cast<long long>(found.size()), T::staticMetaObject.className());
    return *found.front();
}

// The names of the labels and buttons shown under root whose text does not
// fit them: a label lower than its lines or narrower than a line, a button
// narrower or lower than its caption.
QStringList ClippedTexts(const QWidget& root);

// program run with arguments and no display (no DISPLAY, WAYLAND_DISPLAY or
// QT_QPA_PLATFORM): its exit status (-1 when it crashed or did not end in a
// minute), standard output and standard error.
std::tuple<int, QString, QString> RunWithoutDisplay(const QString& program, const QStringList& arguments);

// The built program (executable) copied into a fresh program folder of the
// sample table, run as a process without a display.
struct ProgramCopy {
    explicit ProgramCopy(const char* executable);
    QString File(const char* name) const { return QString::fromStdString(folder.File(name)); }
    // The exit status, standard output and standard error of the copy run
    // with arguments.
    std::tuple<int, QString, QString> Run(const QStringList& arguments) const
    {
        return RunWithoutDisplay(File("platewell"), arguments);
    }
    TempFolder folder;
    std::string data;  // its data.dat
};

// The text of a PDF file as pdftotext reads it.
QString PdfText(const QString& path);

// The share of the pixels of r in image darker than gray.
double DarkShare(const QImage& image, const QRect& r, int gray = 200);

// The texts a combo box lists, in order.
QStringList ComboItems(const QComboBox* combo);

// New Item, then the four tiers picked from their lists as the user picks
// them (a single measure comes with its description).
void ChooseFood(FoodChooserPage& page, const QStringList& tiers);

class ProgramHarness {
public:
    ProgramHarness();
    ~ProgramHarness();

    // The splash's checks and reads; false when the program would end.
    bool LoadSplash();
    // Splash, then StartMain, the tip window when tips are on (closed as
    // its OK button closes it) and the main window's load; false when the
    // splash refused or a run-time error was reported.
    bool Start();
    // Writes the program folder on the data file's bytes, the settings and,
    // when not empty, default.pwp, then starts; a failed start ends the
    // test program.
    void StartOn(const std::string& dataBytes, const std::string& defaultProfile = kAnnProfile,
                 const std::string& settings = QuietSettings());

    TempFolder folder;
    FakeSeams fakes;
    Session session;
    ErrorGuard guard{session.ended, fakes.prompts};
    ProgramWindows windows{session, fakes.seams, guard};
    std::unique_ptr<SplashWindow>& splash = windows.splash;
    std::unique_ptr<TipWindow>& tip = windows.tip;
    std::unique_ptr<MainWindow>& main = windows.main;
};

// Records, in order, the files renamed into (or written in) a folder.
class FolderWatch {
public:
    explicit FolderWatch(const std::string& folder);
    ~FolderWatch();
    // Names of the files written since the last call, in order.
    std::vector<std::string> Written();

private:
    int fd_ = -1;
};

}  // namespace pw::test

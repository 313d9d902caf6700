#pragma once
// What the desktop hands the program: the document a file manager opens with
// it, and the name and icon it shows for the program's windows.
#include <QString>
#include <QStringList>

class QGuiApplication;
class QIcon;

namespace pw {

class MainWindow;

// The desktop entry's name, without ".desktop".
inline constexpr const char* kDesktopFileName = "org.example.platewell";

// Opens path in the main window: a profile file (".pwp", in any case) as the
// profile tab's Load Profile does once its file is chosen, anything else as
// File > Open does once its file is chosen, after offering to save an unsaved
// list. A file that cannot be read is reported as those commands report it.
void OpenDocument(MainWindow& window, const QString& path);

// The program's mark at the sizes a window manager asks for.
QIcon LogoIcon();

// Tells the desktop which entry and icon belong to the program's windows.
void SetDesktopIdentity(QGuiApplication& app);

}  // namespace pw

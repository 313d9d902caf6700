#pragma once
// What the desktop shows for the program's windows: their entry's name and
// icon.

class QGuiApplication;
class QIcon;

namespace pw {

// The desktop entry's name, without ".desktop".
inline constexpr const char* kDesktopFileName = "org.example.platewell";

// The program's mark at the sizes a window manager asks for.
QIcon LogoIcon();

// Tells the desktop which entry and icon belong to the program's windows.
void SetDesktopIdentity(QGuiApplication& app);

}  // namespace pw

list(APPEND MODEL_SOURCES
  src/shell/HelpTopics.cpp
  src/shell/Settings.cpp
  src/shell/Tips.cpp
)
list(APPEND VIEW_SOURCES
  src/shell/AboutBox.cpp
  src/shell/AppRunner.cpp
  src/shell/CommandLine.cpp
  src/shell/ErrorGuard.cpp
  src/shell/HelpWindow.cpp
  src/shell/Logo.cpp
  src/shell/MainWindow.cpp
  src/shell/ProgramWindows.cpp
  src/shell/RealSeams.cpp
  src/shell/Seams.cpp
  src/shell/SplashWindow.cpp
  src/shell/TipWindow.cpp
  src/shell/Twips.cpp
)
list(APPEND MODEL_SOURCES src/shell/ProgramFolder.cpp)
list(APPEND VIEW_SOURCES src/shell/DesktopIntegration.cpp)

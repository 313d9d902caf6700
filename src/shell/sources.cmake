list(APPEND MODEL_SOURCES
  src/shell/HelpTopics.cpp
  src/shell/ProgramLock.cpp
  src/shell/Settings.cpp
  src/shell/Tips.cpp
)
list(APPEND VIEW_SOURCES
  src/shell/views/AboutBox.cpp
  src/shell/views/AppRunner.cpp
  src/shell/views/CommandLine.cpp
  src/shell/views/DaysCommandLine.cpp
  src/shell/views/HelpWindow.cpp
  src/shell/views/Logo.cpp
  src/shell/views/MainWindow.cpp
  src/shell/views/ProgramWindows.cpp
  src/shell/views/RealSeams.cpp
  src/shell/views/RichInCommandLine.cpp
  src/shell/views/SplashWindow.cpp
  src/shell/views/TipWindow.cpp
)
list(APPEND MODEL_SOURCES src/shell/ProgramFolder.cpp)
list(APPEND VIEW_SOURCES src/shell/views/DesktopIntegration.cpp)

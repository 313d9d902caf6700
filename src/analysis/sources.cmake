list(APPEND MODEL_SOURCES
  src/analysis/AnalysisFile.cpp
  src/analysis/AnalysisOpening.cpp
  src/analysis/DailyValues.cpp
  src/analysis/Profile.cpp
  src/analysis/ProfileFile.cpp
)
list(APPEND VIEW_SOURCES
  src/analysis/AnalysisFileCommands.cpp
  src/analysis/AnalysisPage.cpp
  src/analysis/ProfilePage.cpp
)

list(APPEND MODEL_SOURCES
  src/analysis/AnalysisFile.cpp
  src/analysis/AnalysisOpening.cpp
  src/analysis/DailyValues.cpp
  src/analysis/Profile.cpp
  src/analysis/ProfileFile.cpp
)
list(APPEND VIEW_SOURCES
  src/analysis/views/AnalysisFileCommands.cpp
  src/analysis/views/AnalysisPage.cpp
  src/analysis/views/ProfilePage.cpp
)

list(APPEND VIEW_SOURCES
  src/analysis/AnalysisPage.cpp
  src/analysis/ProfilePage.cpp
)

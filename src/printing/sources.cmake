list(APPEND MODEL_SOURCES
  src/printing/Report.cpp
)
list(APPEND VIEW_SOURCES
  src/printing/NutrientChart.cpp
  src/printing/ReportCommands.cpp
  src/printing/ReportPrinter.cpp
  src/printing/ReportRenderer.cpp
)

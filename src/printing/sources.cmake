list(APPEND MODEL_SOURCES
  src/printing/Report.cpp
)
list(APPEND VIEW_SOURCES
  src/printing/views/NutrientChart.cpp
  src/printing/views/ReportCommands.cpp
  src/printing/views/ReportPrinter.cpp
  src/printing/views/ReportRenderer.cpp
)

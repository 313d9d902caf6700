list(APPEND MODEL_SOURCES
  src/printing/Report.cpp
)
list(APPEND VIEW_SOURCES
  src/printing/ReportPrinter.cpp
)

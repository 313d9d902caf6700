list(APPEND MODEL_SOURCES
  src/days/DayFiles.cpp
  src/days/Period.cpp
  src/days/PeriodReport.cpp
)
list(APPEND VIEW_SOURCES
  src/days/views/DaysWindow.cpp
)

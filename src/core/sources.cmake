list(APPEND MODEL_SOURCES
  src/core/LineFile.cpp
  src/core/OutputTarget.cpp
  src/core/Numeric.cpp
  src/core/RunTimeError.cpp
  src/core/Text.cpp
)

list(APPEND VIEW_SOURCES
  src/core/views/StoredTextValidator.cpp
  src/core/views/Widgets.cpp
  src/core/views/ErrorGuard.cpp
  src/core/views/Seams.cpp
  src/core/views/Twips.cpp
  src/core/views/SeriesChart.cpp
)

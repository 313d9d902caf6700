list(APPEND MODEL_SOURCES
  src/richin/RichIn.cpp
  src/richin/RichInCommand.cpp
)

list(APPEND VIEW_SOURCES
  src/richin/views/RichInDialog.cpp
)

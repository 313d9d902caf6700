list(APPEND MODEL_SOURCES
  src/richin/RichIn.cpp
  src/richin/RichInCommand.cpp
)

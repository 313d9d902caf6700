list(APPEND MODEL_SOURCES
  src/dialogs/Search.cpp
)

list(APPEND MODEL_SOURCES
  src/dialogs/Search.cpp
)
list(APPEND VIEW_SOURCES
  src/dialogs/SearchDialog.cpp
)

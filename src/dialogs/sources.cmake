list(APPEND MODEL_SOURCES
  src/dialogs/Search.cpp
)
list(APPEND VIEW_SOURCES
  src/dialogs/views/AddFoodDialog.cpp
  src/dialogs/views/CopyFavoritesDialog.cpp
  src/dialogs/views/DatabaseCommands.cpp
  src/dialogs/views/FavoritesDialog.cpp
  src/dialogs/views/FoodTableDialog.cpp
  src/dialogs/views/SaveDishDialog.cpp
  src/dialogs/views/SearchDialog.cpp
)

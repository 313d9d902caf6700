list(APPEND MODEL_SOURCES
  src/dialogs/Search.cpp
)
list(APPEND VIEW_SOURCES
  src/dialogs/AddFoodDialog.cpp
  src/dialogs/CopyFavoritesDialog.cpp
  src/dialogs/FavoritesDialog.cpp
  src/dialogs/FoodTableDialog.cpp
  src/dialogs/SaveDishDialog.cpp
  src/dialogs/SearchDialog.cpp
)

list(APPEND MODEL_SOURCES
  src/foodlist/ChooserState.cpp
  src/foodlist/FoodList.cpp
  src/foodlist/Quantity.cpp
  src/foodlist/TierMap.cpp
)
list(APPEND VIEW_SOURCES
  src/foodlist/views/FoodListGrid.cpp
  src/foodlist/views/FoodListModel.cpp
  src/foodlist/views/FoodChooserPage.cpp
)

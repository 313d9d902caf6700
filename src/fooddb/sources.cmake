list(APPEND MODEL_SOURCES
  src/fooddb/DataFile.cpp
  src/fooddb/FoodEditing.cpp
  src/fooddb/FoodGroups.cpp
  src/fooddb/FoodRenames.cpp
  src/fooddb/FoodTable.cpp
)

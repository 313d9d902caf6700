# Food chooser, quantity entry and the food list: the tier lists, the scaled
# nutrients, the quantity parser and the list's rows and texts as model
# tests; the chooser and the list's grid as window tests, on small tables and
# on the delivered database.
add_executable(foodlist_model_tests
  foodlist/ChooserStageTest.cpp
  foodlist/FoodListTest.cpp
  foodlist/QuantityTest.cpp
  foodlist/TierMapTest.cpp
)
target_link_libraries(foodlist_model_tests PRIVATE platewell_test_support GTest::gtest_main)
gtest_discover_tests(foodlist_model_tests DISCOVERY_TIMEOUT 60)

if(PLATEWELL_GUI)
  platewell_window_test(foodlist_chooser_tests foodlist/FoodChooserTest.cpp)
  platewell_window_test(foodlist_grid_tests foodlist/FoodListGridTest.cpp)
endif()

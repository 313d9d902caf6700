# Food chooser and quantity entry: the tier lists, the scaled nutrients and
# the quantity parser as model tests.
add_executable(foodlist_model_tests
  foodlist/ChooserStateTest.cpp
  foodlist/QuantityTest.cpp
  foodlist/TierMapTest.cpp
)
target_link_libraries(foodlist_model_tests PRIVATE platewell_test_support GTest::gtest_main)
gtest_discover_tests(foodlist_model_tests DISCOVERY_TIMEOUT 60)

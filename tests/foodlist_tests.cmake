# Food chooser and quantity entry: the quantity parser as model tests.
add_executable(foodlist_model_tests
  foodlist/QuantityTest.cpp
)
target_link_libraries(foodlist_model_tests PRIVATE platewell_test_support GTest::gtest_main)
gtest_discover_tests(foodlist_model_tests DISCOVERY_TIMEOUT 60)

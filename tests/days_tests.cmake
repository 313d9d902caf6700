# Several days of lists: the period model on files the tests write.
add_executable(days_model_tests days/PeriodTest.cpp)
target_link_libraries(days_model_tests PRIVATE platewell_test_support GTest::gtest_main)
gtest_discover_tests(days_model_tests DISCOVERY_TIMEOUT 60)

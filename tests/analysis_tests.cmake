# Profile, daily values and BMI, profile file: model tests.
add_executable(analysis_model_tests
  analysis/DailyValuesTest.cpp
  analysis/ProfileFileTest.cpp
  analysis/ProfileTest.cpp
)
target_link_libraries(analysis_model_tests PRIVATE platewell_test_support GTest::gtest_main)
gtest_discover_tests(analysis_model_tests DISCOVERY_TIMEOUT 60)

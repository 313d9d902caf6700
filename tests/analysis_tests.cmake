# Profile, daily values and BMI, profile and list files: model tests.
add_executable(analysis_model_tests
  analysis/ProfileFileTest.cpp
  analysis/ProfileTest.cpp
)
target_link_libraries(analysis_model_tests PRIVATE platewell_test_support GTest::gtest_main)
gtest_discover_tests(analysis_model_tests DISCOVERY_TIMEOUT 60)

if(PLATEWELL_GUI)
  # The profile and analysis tabs, driven by their named controls.
  platewell_window_test(analysis_profile_page_tests analysis/ProfilePageTest.cpp)
endif()

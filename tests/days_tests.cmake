# Several days of lists: the period model on files the tests write.
add_executable(days_model_tests days/PeriodTest.cpp)
target_link_libraries(days_model_tests PRIVATE platewell_test_support GTest::gtest_main)
gtest_discover_tests(days_model_tests DISCOVERY_TIMEOUT 60)

if(PLATEWELL_GUI)
  # The period exports of the built program, as a separate process.
  platewell_window_test(days_command_line_tests days/DaysCommandLineTest.cpp)
  target_compile_definitions(days_command_line_tests PRIVATE PLATEWELL_EXE="$<TARGET_FILE:platewell>")
  add_dependencies(days_command_line_tests platewell)
endif()
if(PLATEWELL_GUI)
  # The days window alone on the fakes.
  platewell_window_test(days_window_tests days/DaysWindowTest.cpp)
endif()

# Foods rich in a nutrient: the ranking, the gap and the command line's
# arguments as model tables; the dialog alone on a session and the fakes.
add_executable(richin_model_tests
  richin/RichInTest.cpp
  richin/RichInCommandTest.cpp
)
target_link_libraries(richin_model_tests PRIVATE platewell_test_support GTest::gtest_main)
gtest_discover_tests(richin_model_tests DISCOVERY_TIMEOUT 60)

if(PLATEWELL_GUI)
  platewell_window_test(richin_window_tests richin/RichInDialogTest.cpp)
  target_compile_definitions(richin_window_tests PRIVATE PLATEWELL_EXE="$<TARGET_FILE:platewell>")
  add_dependencies(richin_window_tests platewell)
endif()

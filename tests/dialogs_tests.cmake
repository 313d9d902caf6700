# Database dialogs: the search and the table's editing as model tests; the
# dialogs alone on a session and the fakes, and in the running program where
# the Database menu and the chooser join in, all through named controls.
add_executable(dialogs_model_tests
  dialogs/SearchTest.cpp
  fooddb/FoodEditingTest.cpp
)
target_link_libraries(dialogs_model_tests PRIVATE platewell_test_support GTest::gtest_main)
gtest_discover_tests(dialogs_model_tests DISCOVERY_TIMEOUT 60)

if(PLATEWELL_GUI)
  platewell_window_test(dialogs_search_tests dialogs/SearchDialogTest.cpp)
  platewell_window_test(dialogs_table_tests dialogs/FoodTableDialogsTest.cpp)
endif()

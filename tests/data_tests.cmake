# The delivered food database (data/data.dat) and the maker that builds it
# from data/source/usda-sr21. The maker runs in-process, so the test can
# compare a fresh generation with the committed file byte for byte.
add_executable(platewell_data_tests ${CMAKE_CURRENT_SOURCE_DIR}/fooddb/DeliveredDatabaseTest.cpp)
target_link_libraries(platewell_data_tests PRIVATE platewell_dbmaker GTest::gtest_main)
target_compile_definitions(platewell_data_tests PRIVATE PLATEWELL_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
gtest_discover_tests(platewell_data_tests DISCOVERY_TIMEOUT 60)

# The maker's rules on small USDA extracts the test writes.
add_executable(platewell_dbmaker_tests ${CMAKE_CURRENT_SOURCE_DIR}/fooddb/DatabaseMakerRulesTest.cpp)
target_link_libraries(platewell_dbmaker_tests PRIVATE platewell_dbmaker platewell_test_support GTest::gtest_main)
gtest_discover_tests(platewell_dbmaker_tests DISCOVERY_TIMEOUT 60)

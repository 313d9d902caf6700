# Loading the delivered food database: the header with its raw record lines
# (start-up, behind the splash) and the records themselves (main window load).
add_executable(platewell_data_bench ${CMAKE_CURRENT_SOURCE_DIR}/DataBench.cpp)
target_link_libraries(platewell_data_bench PRIVATE platewell_model benchmark::benchmark)
target_compile_definitions(platewell_data_bench PRIVATE PLATEWELL_SOURCE_DIR="${CMAKE_SOURCE_DIR}")

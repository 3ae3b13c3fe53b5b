# bench/planner: the pass planner over whole element files.
add_executable(bench_planner planner_bench.cpp)
target_link_libraries(bench_planner PRIVATE norvane_options core_analysis core_elements benchmark::benchmark_main)
target_compile_definitions(bench_planner PRIVATE NORVANE_DATA_DIR="${PROJECT_SOURCE_DIR}/data")

# bench/passes: 24-hour pass and flare searches over whole element files.
add_executable(bench_passes passes_bench.cpp)
target_link_libraries(bench_passes PRIVATE norvane_options core_analysis core_elements benchmark::benchmark_main)
target_compile_definitions(bench_passes PRIVATE NORVANE_DATA_DIR="${PROJECT_SOURCE_DIR}/data")

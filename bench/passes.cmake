# bench/passes: 24-hour pass and flare searches over whole element files, and
# the pass summary over a 12,000-satellite catalogue.
add_executable(bench_passes passes_bench.cpp catalogue_passes_bench.cpp)
target_link_libraries(bench_passes PRIVATE norvane_options core_analysis core_elements synthetic_catalogue
                      benchmark::benchmark_main)
target_compile_definitions(bench_passes PRIVATE NORVANE_DATA_DIR="${PROJECT_SOURCE_DIR}/data")

# bench/views: one full paint of each graphic view.
add_executable(bench_views views_bench.cpp)
target_link_libraries(bench_views PRIVATE norvane_options ui_views core_elements benchmark::benchmark_main)
target_compile_definitions(bench_views PRIVATE NORVANE_DATA_DIR="${NORVANE_DATA_DIR}")

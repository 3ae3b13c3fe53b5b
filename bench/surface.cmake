add_executable(bench_surface surface_bench.cpp)
target_link_libraries(bench_surface PRIVATE norvane_options ui_surface benchmark::benchmark_main)
target_compile_definitions(bench_surface PRIVATE NORVANE_DATA_DIR="${NORVANE_DATA_DIR}")

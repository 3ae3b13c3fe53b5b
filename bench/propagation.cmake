# bench/propagation: warm model calls and initialisation of the four models,
# and the batch SGP4/SDP4 over many satellites or many times.
add_executable(bench_propagation propagation_bench.cpp)
target_link_libraries(bench_propagation PRIVATE norvane_options core_propagation_batch core_propagation core_elements
                      core_time synthetic_catalogue benchmark::benchmark)
target_compile_definitions(bench_propagation PRIVATE NORVANE_DATA_DIR="${PROJECT_SOURCE_DIR}/data")

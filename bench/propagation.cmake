# bench/propagation: warm model calls and initialisation of the four models.
add_executable(bench_propagation propagation_bench.cpp)
target_link_libraries(bench_propagation PRIVATE norvane_options core_propagation core_elements core_time
                      benchmark::benchmark)

add_executable(bench_nmea nmea_bench.cpp)
target_link_libraries(bench_nmea PRIVATE norvane_options gps_core benchmark::benchmark_main)

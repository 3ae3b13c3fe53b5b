add_executable(nmea_bench nmea_bench.cpp)
target_link_libraries(nmea_bench PRIVATE norvane_options gps_core benchmark::benchmark_main)

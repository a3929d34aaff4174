find_package(benchmark REQUIRED)
add_executable(round_trip round_trip.cpp)
target_link_libraries(round_trip PRIVATE benchmark::benchmark quillon_platform quillon_queue_server)

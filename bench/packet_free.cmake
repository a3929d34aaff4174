add_executable(packet_free packet_free.cpp)
target_compile_definitions(packet_free PRIVATE QUILLON_CTL="$<TARGET_FILE:quillon_ctl>")
target_link_libraries(packet_free PRIVATE host_support quillon quillon_platform)
add_dependencies(packet_free quillon_ctl)

add_executable(status_block status_block.cpp)
target_compile_definitions(status_block PRIVATE QUILLON_DRIVER="$<TARGET_FILE:quillon_driver>")
target_link_libraries(status_block PRIVATE host_support quillon quillon_platform)
add_dependencies(status_block quillon_driver)

# The programs under test, run as processes of their own.
add_library(e2e_support STATIC
  e2e/support/child.cpp
  e2e/support/driver_process.cpp
  e2e/support/observe.cpp
  e2e/support/raw_queue.cpp
  e2e/support/terminal.cpp)
target_include_directories(e2e_support PUBLIC ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/tests)
target_compile_definitions(e2e_support PRIVATE
  QUILLON_CTL="$<TARGET_FILE:quillon_ctl>"
  QUILLON_DRIVER="$<TARGET_FILE:quillon_driver>"
  QUILLON_EMULATOR="${CMAKE_CROSSCOMPILING_EMULATOR}"
  QUILLON_PROGRAMS="${PROJECT_BINARY_DIR}/"
  QUILLON_RUN="$<TARGET_FILE:quillon_run>")
target_link_libraries(e2e_support PUBLIC quillon_queue_server test_support GTest::gtest)
add_dependencies(e2e_support quillon_ctl quillon_driver quillon_run)

quillon_native_test(e2e_program_tests
  e2e/malformed_requests_test.cpp
  e2e/port_map_test.cpp
  e2e/routing_menu_test.cpp
  e2e/run_test.cpp)
target_compile_definitions(e2e_program_tests PRIVATE
  QUILLON_PORT_MAP="$<TARGET_FILE:port_map>"
  QUILLON_ROUTING_MENU="$<TARGET_FILE:routing_menu>")
target_link_libraries(e2e_program_tests PRIVATE e2e_support GTest::gmock)
add_dependencies(e2e_program_tests port_map routing_menu)

# Application processes, of which the test itself is one. They have a system() of their own, to which libquillon binds.
quillon_test(e2e_switch_tests e2e/switch_test.cpp)
quillon_native_test(e2e_client_tests
  e2e/access_list_test.cpp
  e2e/address_table_test.cpp
  e2e/counters_test.cpp
  e2e/device_test.cpp
  e2e/driver_death_test.cpp
  e2e/oam_events_test.cpp
  e2e/packet_load_test.cpp
  e2e/packet_path_test.cpp
  e2e/routing_test.cpp)
quillon_native_test(e2e_soak_tests e2e/soak_test.cpp)
foreach(tests e2e_switch_tests e2e_client_tests e2e_soak_tests)
  target_sources(${tests} PRIVATE e2e/support/no_dumps.cpp)
  target_link_libraries(${tests} PRIVATE e2e_support quillon quillon_platform GTest::gmock)
  set_target_properties(${tests} PROPERTIES ENABLE_EXPORTS ON)
endforeach()

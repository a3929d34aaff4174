# The programs under test, run as processes of their own.
add_library(e2e_support STATIC
  e2e/support/child.cpp
  e2e/support/control.cpp
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

# An application process. It has a system() of its own, to which libquillon binds.
add_executable(e2e_client e2e/client.cpp)
target_include_directories(e2e_client PRIVATE ${PROJECT_SOURCE_DIR}/tests)
target_link_libraries(e2e_client PRIVATE quillon quillon_platform Threads::Threads)
set_target_properties(e2e_client PROPERTIES ENABLE_EXPORTS ON)

quillon_native_test(e2e_tests
  e2e/driver_death_test.cpp
  e2e/malformed_requests_test.cpp
  e2e/port_map_test.cpp
  e2e/routing_menu_test.cpp
  e2e/run_test.cpp
  e2e/support/client_process.cpp)
target_compile_definitions(e2e_tests PRIVATE
  QUILLON_CLIENT="$<TARGET_FILE:e2e_client>"
  QUILLON_PORT_MAP="$<TARGET_FILE:port_map>"
  QUILLON_ROUTING_MENU="$<TARGET_FILE:routing_menu>")
target_link_libraries(e2e_tests PRIVATE e2e_support GTest::gmock)
add_dependencies(e2e_tests e2e_client port_map routing_menu)

# Application processes that set a switch up, and one that watches it: the test itself.
add_executable(e2e_switch_setup e2e/switch_setup.cpp)
target_link_libraries(e2e_switch_setup PRIVATE quillon quillon_platform)

quillon_test(e2e_switch_tests e2e/switch_test.cpp)
target_compile_definitions(e2e_switch_tests PRIVATE QUILLON_SWITCH_SETUP="$<TARGET_FILE:e2e_switch_setup>")
target_link_libraries(e2e_switch_tests PRIVATE e2e_support quillon quillon_platform)
add_dependencies(e2e_switch_tests e2e_switch_setup)

quillon_test(e2e_control_tests e2e/control_test.cpp)
target_link_libraries(e2e_control_tests PRIVATE e2e_support quillon quillon_platform GTest::gmock)

# Application processes that wait for events.
add_executable(e2e_oam_waiter e2e/oam_waiter.cpp)
target_link_libraries(e2e_oam_waiter PRIVATE quillon quillon_platform Threads::Threads)

quillon_native_test(e2e_oam_tests e2e/oam_events_test.cpp)
target_compile_definitions(e2e_oam_tests PRIVATE QUILLON_OAM_WAITER="$<TARGET_FILE:e2e_oam_waiter>")
target_link_libraries(e2e_oam_tests PRIVATE e2e_support quillon quillon_platform)
add_dependencies(e2e_oam_tests e2e_oam_waiter)

# Application processes that use devices on the buses, beside the test itself.
add_executable(e2e_eeprom_user e2e/eeprom_user.cpp)
target_link_libraries(e2e_eeprom_user PRIVATE quillon quillon_platform)

quillon_native_test(e2e_device_tests e2e/device_test.cpp)
target_compile_definitions(e2e_device_tests PRIVATE QUILLON_EEPROM_USER="$<TARGET_FILE:e2e_eeprom_user>")
target_link_libraries(e2e_device_tests PRIVATE e2e_support quillon quillon_platform)
add_dependencies(e2e_device_tests e2e_eeprom_user)

# Application processes that share a routing table.
add_executable(e2e_route_setup e2e/route_setup.cpp)
target_include_directories(e2e_route_setup PRIVATE ${PROJECT_SOURCE_DIR}/tests)
target_link_libraries(e2e_route_setup PRIVATE quillon quillon_platform)

quillon_native_test(e2e_routing_tests e2e/routing_test.cpp)
target_compile_definitions(e2e_routing_tests PRIVATE QUILLON_ROUTE_SETUP="$<TARGET_FILE:e2e_route_setup>")
target_link_libraries(e2e_routing_tests PRIVATE e2e_support quillon quillon_platform)
add_dependencies(e2e_routing_tests e2e_route_setup)

# An application process that installs an access list, which the test itself watches.
add_executable(e2e_access_list e2e/access_list.cpp)
target_link_libraries(e2e_access_list PRIVATE quillon quillon_platform)

quillon_native_test(e2e_rule_tests e2e/access_list_test.cpp)
target_compile_definitions(e2e_rule_tests PRIVATE QUILLON_ACCESS_LIST="$<TARGET_FILE:e2e_access_list>")
target_link_libraries(e2e_rule_tests PRIVATE e2e_support quillon quillon_platform GTest::gmock)
add_dependencies(e2e_rule_tests e2e_access_list)

# Application processes that walk the MAC address table, and one that deletes from it.
add_executable(e2e_address_table_user e2e/address_table_user.cpp)
target_link_libraries(e2e_address_table_user PRIVATE quillon quillon_platform)
target_include_directories(e2e_address_table_user PRIVATE ${PROJECT_SOURCE_DIR}/tests)

quillon_native_test(e2e_address_table_tests e2e/address_table_test.cpp)
target_compile_definitions(e2e_address_table_tests PRIVATE
  QUILLON_ADDRESS_TABLE_USER="$<TARGET_FILE:e2e_address_table_user>")
target_link_libraries(e2e_address_table_tests PRIVATE e2e_support quillon quillon_platform GTest::gmock)
add_dependencies(e2e_address_table_tests e2e_address_table_user)

# Application processes that receive packets, and the test itself, which sends and receives as well.
add_executable(e2e_packet_worker e2e/packet_worker.cpp)
target_link_libraries(e2e_packet_worker PRIVATE quillon quillon_platform Threads::Threads)

quillon_native_test(e2e_packet_tests e2e/packet_load_test.cpp e2e/packet_path_test.cpp)
target_compile_definitions(e2e_packet_tests PRIVATE QUILLON_PACKET_WORKER="$<TARGET_FILE:e2e_packet_worker>")
target_link_libraries(e2e_packet_tests PRIVATE e2e_support quillon quillon_platform GTest::gmock)
add_dependencies(e2e_packet_tests e2e_packet_worker)

quillon_native_test(e2e_counter_tests e2e/counters_test.cpp)
target_link_libraries(e2e_counter_tests PRIVATE e2e_support quillon quillon_platform)

# Application processes under whose load the driver process is killed.
add_executable(e2e_soak_client e2e/soak_client.cpp)
target_include_directories(e2e_soak_client PRIVATE ${PROJECT_SOURCE_DIR}/tests)
target_link_libraries(e2e_soak_client PRIVATE quillon quillon_platform Threads::Threads)
set_target_properties(e2e_soak_client PROPERTIES ENABLE_EXPORTS ON)

quillon_native_test(e2e_soak_tests e2e/soak_test.cpp)
target_compile_definitions(e2e_soak_tests PRIVATE QUILLON_SOAK_CLIENT="$<TARGET_FILE:e2e_soak_client>")
target_link_libraries(e2e_soak_tests PRIVATE e2e_support)
add_dependencies(e2e_soak_tests e2e_soak_client)

find_package(GTest REQUIRED)

quillon_test(driver_tests
  driver/amtrdrv_test.cpp
  driver/devrm_rules_test.cpp
  driver/dispatcher_test.cpp
  driver/event_log_test.cpp
  driver/ip_multicast_test.cpp
  driver/mac_table_test.cpp
  driver/meter_test.cpp
  driver/nmtrdrv_test.cpp
  driver/oam_events_test.cpp
  driver/packet_generators_test.cpp
  driver/packet_memory_test.cpp
  driver/packet_path_test.cpp
  driver/packet_receiver_test.cpp
  driver/pattern_match_test.cpp
  driver/port_status_test.cpp
  driver/process_test.cpp
  driver/routes_test.cpp
  driver/rules_test.cpp
  driver/stack_test.cpp
  driver/swdrv_dot1q_tunnel_test.cpp
  driver/swdrv_encoding_test.cpp
  driver/swdrv_frame_size_test.cpp
  driver/swdrv_mapping_test.cpp
  driver/swdrv_mirroring_test.cpp
  driver/swdrv_multicast_traps_test.cpp
  driver/swdrv_oam_test.cpp
  driver/swdrv_phy_test.cpp
  driver/swdrv_port_config_test.cpp
  driver/swdrv_port_status_test.cpp
  driver/swdrv_priority_test.cpp
  driver/swdrv_spanning_tree_test.cpp
  driver/swdrv_stacking_test.cpp
  driver/swdrv_storm_control_test.cpp
  driver/swdrv_trunk_test.cpp
  driver/swdrv_twsi_poe_test.cpp
  driver/swdrv_vlan_rules_test.cpp
  driver/swdrv_vlan_test.cpp
  driver/swdrvl3_interfaces_test.cpp
  driver/swdrvl3_multicast_test.cpp
  driver/swdrvl3_routes_test.cpp
  driver/swdrvl4_test.cpp)
target_compile_definitions(driver_tests PRIVATE QUILLON_VERSION="${PROJECT_VERSION}")
target_link_libraries(driver_tests PRIVATE e2e_support quillon_driver_parts quillon quillon_platform GTest::gmock)

quillon_recorded_test(wire_test
  wire/coverage_test.cpp
  wire/exchange_test.cpp
  wire/failed_exchange_test.cpp
  wire/row_exchange.cpp
  wire/devrm_rules.cpp
  wire/swdrv_mapping.cpp
  wire/swdrv_port_config.cpp
  wire/swdrv_spanning_tree.cpp
  wire/swdrv_vlan.cpp
  wire/swdrv_frame_size.cpp
  wire/swdrv_dot1q_tunnel.cpp
  wire/swdrv_mirroring.cpp
  wire/swdrv_trunk.cpp
  wire/swdrv_igmp_trap.cpp
  wire/swdrv_storm_control.cpp
  wire/swdrv_priority.cpp
  wire/swdrv_port_status.cpp
  wire/swdrvl3_multicast.cpp
  wire/swdrvl3_outcomes_test.cpp
  wire/swdrvl3_routes.cpp
  wire/swdrvl3_routing.cpp
  ${declared_functions}
)
target_link_libraries(wire_test PRIVATE quillon)
target_compile_definitions(wire_test PRIVATE QUILLON_DECLARED_FUNCTIONS="${declared_functions}")

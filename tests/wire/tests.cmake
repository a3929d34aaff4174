quillon_recorded_test(wire_test
  wire/coverage_test.cpp
  wire/exchange_test.cpp
  wire/failed_exchange_test.cpp
  wire/row_exchange.cpp
  wire/amtrdrv_entries.cpp
  wire/amtrdrv_learning.cpp
  wire/amtrdrv_lookup.cpp
  wire/amtrdrv_multicast.cpp
  wire/amtrdrv_walk.cpp
  wire/devrm_rules.cpp
  wire/nicdrv_statistics.cpp
  wire/nicdrv_transmit.cpp
  wire/nmtrdrv_counters.cpp
  wire/nmtrdrv_statistics.cpp
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
  wire/swdrv_multicast_traps.cpp
  wire/swdrv_vlan_rules.cpp
  wire/swdrv_stacking.cpp
  wire/swdrv_phy.cpp
  wire/swdrv_oam.cpp
  wire/swdrv_twsi_poe.cpp
  wire/swdrvl3_multicast.cpp
  wire/swdrvl3_outcomes_test.cpp
  wire/swdrvl3_routes.cpp
  wire/swdrvl3_routing.cpp
  wire/swdrvl4_cos_mapping.cpp
  wire/swdrvl4_port_isolation.cpp
  wire/swdrvl4_rate_and_scheduling.cpp
  wire/swdrvl4_sflow_and_dos.cpp
  ${declared_functions}
)
target_link_libraries(wire_test PRIVATE quillon)
target_compile_definitions(wire_test PRIVATE QUILLON_DECLARED_FUNCTIONS="${declared_functions}")

# On its own: its malloc and free are the whole executable's. The sanitizers bring theirs, and find what is not freed or
# written out of bounds in the wire tests.
if(NOT QUILLON_SANITIZE)
  quillon_recorded_test(heap_envelope_test wire/heap_envelope_test.cpp support/watched_heap.cpp)
  target_link_libraries(heap_envelope_test PRIVATE quillon)
endif()

# Other builds leave the limits to their callers.
if(CMAKE_BUILD_TYPE STREQUAL Debug)
  target_sources(wire_test PRIVATE wire/caller_limits_test.cpp)
endif()

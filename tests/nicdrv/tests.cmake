quillon_recorded_test(nicdrv_test
  nicdrv/attach_test.cpp
  nicdrv/loans_test.cpp
  nicdrv/operating_mode_test.cpp
  nicdrv/receive_codes_test.cpp
  nicdrv/uncleared_envelope_test.cpp
)
target_link_libraries(nicdrv_test PRIVATE quillon)

# One process steps another one through the library, which an emulator does not let it do.
quillon_native_test(nicdrv_order_test nicdrv/count_order_test.cpp $<TARGET_OBJECTS:recording_platform>)
target_link_libraries(nicdrv_order_test PRIVATE test_support quillon quillon_includes)
set_target_properties(nicdrv_order_test PROPERTIES ENABLE_EXPORTS ON)

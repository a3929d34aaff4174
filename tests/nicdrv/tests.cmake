quillon_recorded_test(nicdrv_test
  nicdrv/attach_test.cpp
  nicdrv/loans_test.cpp
  nicdrv/operating_mode_test.cpp
  nicdrv/receive_codes_test.cpp
  nicdrv/uncleared_envelope_test.cpp
)
target_link_libraries(nicdrv_test PRIVATE quillon)

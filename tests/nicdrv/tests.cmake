quillon_recorded_test(nicdrv_test
  nicdrv/uncleared_envelope_test.cpp
)
target_link_libraries(nicdrv_test PRIVATE quillon)

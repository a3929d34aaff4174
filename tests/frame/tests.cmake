# The frame is not exported: its one source is compiled into the test.
quillon_recorded_test(frame_test
  frame/envelope_test.cpp
  ${PROJECT_SOURCE_DIR}/ipc/failure_report.cpp
)
target_include_directories(frame_test PRIVATE ${PROJECT_SOURCE_DIR})

quillon_recorded_test(start_up_test frame/start_up_test.cpp)
target_link_libraries(start_up_test PRIVATE quillon)

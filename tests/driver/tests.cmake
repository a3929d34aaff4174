find_package(GTest REQUIRED)

quillon_test(driver_tests
  driver/dispatcher_test.cpp
  driver/event_log_test.cpp
  driver/process_test.cpp
  driver/stack_test.cpp
  driver/swdrv_mapping_test.cpp)
target_compile_definitions(driver_tests PRIVATE QUILLON_VERSION="${PROJECT_VERSION}")
target_link_libraries(driver_tests PRIVATE e2e_support quillon_driver_parts GTest::gmock)

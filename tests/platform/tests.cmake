quillon_test(platform_tests
  platform/client_process_test.cpp
  platform/console_test.cpp
  platform/driver_loss_test.cpp
  platform/exchange_test.cpp
  platform/queue_server_test.cpp
  platform/runtime_folder_test.cpp
  platform/shared_run_test.cpp
  platform/support.cpp)
target_link_libraries(platform_tests PRIVATE GTest::gmock quillon_platform e2e_support)
# It starts itself anew, which an emulator does not follow. Nothing in it depends on the architecture.
if(NOT CMAKE_CROSSCOMPILING)
  target_sources(platform_tests PRIVATE platform/client_runtime_folder_test.cpp)
endif()

# Its processes start driver processes while they have threads. The emulator's own threads do not outlive such a fork,
# and what the sanitizers keep of threads and memory may be locked in the child for ever.
if(NOT QUILLON_SANITIZE)
  quillon_native_test(platform_loss_tests platform/shared_run_loss_test.cpp platform/support.cpp)
  target_link_libraries(platform_loss_tests PRIVATE quillon_platform e2e_support)
endif()

# It forbids system calls, which an emulator does not do, and the sanitizers make some of their own.
if(NOT QUILLON_SANITIZE)
  quillon_native_test(platform_system_calls_test platform/system_calls_test.cpp platform/support.cpp)
  target_link_libraries(platform_system_calls_test PRIVATE quillon_platform e2e_support)
endif()

# It puts a malloc() of its own in place, as the sanitizers do.
if(NOT QUILLON_SANITIZE)
  quillon_test(platform_heap_test platform/heap_test.cpp platform/support.cpp)
  target_link_libraries(platform_heap_test PRIVATE quillon_platform e2e_support)
endif()

# What is shipped, as a user gets it.
file(GLOB man_pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/man/*.[1-9])
add_test(NAME man_pages COMMAND mandoc -T lint -W warning ${man_pages})

if(CMAKE_BUILD_TYPE STREQUAL Release AND NOT CMAKE_CROSSCOMPILING)
  add_test(NAME installed_and_packed
    COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_SOURCE_DIR}/install/install_test.py
      --build ${PROJECT_BINARY_DIR} --architecture ${CMAKE_LIBRARY_ARCHITECTURE})
  # It builds the repository anew.
  add_test(NAME first_request_guide
    COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_SOURCE_DIR}/docs/first_request_test.py)
  # Both compile, and beside each other.
  set_tests_properties(installed_and_packed first_request_guide PROPERTIES TIMEOUT 3600)
endif()

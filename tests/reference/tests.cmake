# The reference is made of a debug build of the library, by what the compiler that it is built with everywhere tells.
if(CMAKE_BUILD_TYPE STREQUAL Debug AND CMAKE_CXX_COMPILER_ID STREQUAL GNU
    AND NOT CMAKE_CROSSCOMPILING AND NOT QUILLON_SANITIZE)
  add_test(NAME reference
    COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_SOURCE_DIR}/reference/reference_test.py --build ${PROJECT_BINARY_DIR})
endif()

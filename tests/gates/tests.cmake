# What is checked of the library and the headers as they are shipped.
add_test(NAME gates_can_fail COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_SOURCE_DIR}/gates/gates_test.py)

file(GLOB headers RELATIVE ${PROJECT_SOURCE_DIR}/include CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/include/quillon/*.h)
foreach(path ${headers})
  get_filename_component(header ${path} NAME_WE)
  add_test(NAME header_${header}_as_c99
    COMMAND ${Python3_EXECUTABLE} gates/check_header.py --compiler ${CMAKE_C_COMPILER} --dialect c99
      --include ${PROJECT_SOURCE_DIR}/include ${path}
    WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
  add_test(NAME header_${header}_as_cxx11
    COMMAND ${Python3_EXECUTABLE} gates/check_header.py --compiler ${CMAKE_CXX_COMPILER} --dialect c++11
      --include ${PROJECT_SOURCE_DIR}/include ${path}
    WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
endforeach()

# A sanitizer brings functions and libraries of its own, so that its builds say nothing about the shipped library.
if(NOT QUILLON_SANITIZE)
  add_test(NAME library_exports
    COMMAND ${Python3_EXECUTABLE} gates/check_exports.py --library $<TARGET_FILE:quillon>
      --declared ${declared_functions} --list gates/exports.txt
    WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
  if(QUILLON_HOST)
    add_test(NAME platform_exports
      COMMAND ${Python3_EXECUTABLE} gates/check_exports.py --library $<TARGET_FILE:quillon_platform>
        --declared ${workstation_functions} --list gates/platform_exports.txt
      WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
  endif()
  add_test(NAME library_imports
    COMMAND ${Python3_EXECUTABLE} gates/check_imports.py --library $<TARGET_FILE:quillon>
      --platform ${platform_functions} $<$<CONFIG:Debug>:--debug>
    WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}
    COMMAND_EXPAND_LISTS)
  add_test(NAME library_identity
    COMMAND ${Python3_EXECUTABLE} gates/check_identity.py --library $<TARGET_FILE:quillon>
    WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
  # The baseline is of this compiler's debug information.
  if(CMAKE_BUILD_TYPE STREQUAL Debug AND CMAKE_CXX_COMPILER_ID STREQUAL GNU AND NOT CMAKE_CROSSCOMPILING)
    add_test(NAME library_abi
      COMMAND ${Python3_EXECUTABLE} gates/check_abi.py --library $<TARGET_FILE:quillon>
        --headers ${PROJECT_SOURCE_DIR}/include/quillon --baseline gates/libquillon.abi
      WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
  endif()
  if(CMAKE_SYSTEM_PROCESSOR STREQUAL aarch64)
    add_test(NAME library_fits_the_target
      COMMAND ${Python3_EXECUTABLE} gates/check_target.py --library $<TARGET_FILE:quillon> --strip ${CMAKE_STRIP}
      WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
  endif()
  # Without optimisation a stack frame says nothing about the shipped one.
  if(CMAKE_BUILD_TYPE STREQUAL Release)
    add_test(NAME library_stack_use
      COMMAND ${Python3_EXECUTABLE} gates/check_stack_use.py --objects ${PROJECT_BINARY_DIR}/CMakeFiles/quillon.dir
        --large-envelopes gates/large_envelopes.txt
      WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
  endif()
endif()

# What every target is compiled with. Code of the shipped library has its own options besides (cmake/library.cmake).
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 99)
set(CMAKE_C_EXTENSIONS OFF)
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

add_compile_options(-Wall -Wextra -Wconversion -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
  add_compile_options(-Wimplicit-fallthrough -Wextra-semi -Wunreachable-code -Wcomma)
endif()

if(QUILLON_SANITIZE)
  # The check of virtual calls opens a pipe to see whether an object can be read, and takes every object for a wrong one
  # in a process without free descriptors, as tests make them. Virtual functions are only in tests and option parsers.
  add_compile_options(-fsanitize=${QUILLON_SANITIZE} -fno-sanitize-recover=all -fno-sanitize=vptr
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${QUILLON_SANITIZE})
endif()
if(QUILLON_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

add_library(quillon_includes INTERFACE)
target_include_directories(quillon_includes INTERFACE ${PROJECT_SOURCE_DIR}/include)

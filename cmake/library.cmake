# libquillon.so.0. Each folder adds its own sources.
add_library(quillon SHARED)

target_include_directories(quillon
  PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
  PRIVATE ${PROJECT_SOURCE_DIR})

# No C++ run-time library: nothing in the code needs one, and the C linker driver adds none.
target_compile_options(quillon PRIVATE
  -fno-exceptions -fno-rtti -fno-threadsafe-statics -fstack-usage -U_FORTIFY_SOURCE)
# Vectors made of two or three header fields cost more instructions than the plain stores that they replace.
target_compile_options(quillon PRIVATE -fno-tree-slp-vectorize)
set_target_properties(quillon PROPERTIES
  LINKER_LANGUAGE C
  SOVERSION 0
  VERSION 0.${PROJECT_VERSION_MINOR}.${PROJECT_VERSION_PATCH})

# The platform functions bind when they are first called: a process that uses one family need not bring those of another.
target_link_options(quillon
  PRIVATE -Wl,-z,lazy -Wl,--as-needed
  INTERFACE -Wl,--allow-shlib-undefined)

# The target's flash is small. Calls are found through the frame pointers there, which the ABI keeps, so that tables for
# unwinding, a sixth of the file, are of no use; and with pages of up to 64 KiB the part that is read-only after
# relocation would begin that much later in the file. Bound lazily, it leaves the larger part of its table writable
# anyway.
if(CMAKE_SYSTEM_PROCESSOR STREQUAL aarch64)
  target_compile_options(quillon PRIVATE
    -fno-unwind-tables -fno-asynchronous-unwind-tables -fno-omit-frame-pointer
    -fno-align-functions -fno-align-jumps -fno-align-loops)
  target_link_options(quillon PRIVATE -Wl,-z,norelro)
endif()

if(QUILLON_COVERAGE)
  target_compile_options(quillon PRIVATE -O0 --coverage)
  target_link_options(quillon PRIVATE --coverage)
endif()

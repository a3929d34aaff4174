# What is installed, where, and how it is packed. Three parts: the library, what programs are built with, and what runs
# them on a workstation.
include(CMakePackageConfigHelpers)

set(QUILLON_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/quillon)

# The library's file is the runtime's, the name without a number that a linker looks for belongs to building.
function(quillon_install_library target runtime)
  install(TARGETS ${target} EXPORT quillonTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${runtime} NAMELINK_COMPONENT development)
endfunction()

# A .pc file that finds its prefix by its own place, so that an installed tree can be moved.
function(quillon_install_pc name description libs)
  file(RELATIVE_PATH QUILLON_PC_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
  set(QUILLON_PC_NAME ${name})
  set(QUILLON_PC_DESCRIPTION ${description})
  set(QUILLON_PC_LIBS ${libs})
  configure_file(cmake/quillon.pc.in ${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endfunction()

quillon_install_library(quillon runtime)
set_target_properties(quillon PROPERTIES EXPORT_NAME quillon)
quillon_install_pc(quillon "Client library of a switch's driver process"
  "-lquillon -Wl,--allow-shlib-undefined")
install(DIRECTORY include/quillon DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)

if(QUILLON_HOST)
  quillon_install_library(quillon_platform workstation)
  set_target_properties(quillon_platform PROPERTIES EXPORT_NAME platform)
  quillon_install_pc(quillon-platform "Platform functions of libquillon on a workstation" -lquillon-platform)
  install(TARGETS quillon_driver quillon_run quillon_ctl RUNTIME COMPONENT workstation)
  install(FILES docs/man/quillon-ctl.1 docs/man/quillon-driver.1 docs/man/quillon-run.1
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT workstation)
  install(FILES docs/driver.md docs/driver-encodings.md docs/driver-limits.md docs/platform.md
    DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT workstation)
endif()
install(FILES docs/man/quillon.7 DESTINATION ${CMAKE_INSTALL_MANDIR}/man7 COMPONENT development)

install(EXPORT quillonTargets NAMESPACE quillon:: DESTINATION ${QUILLON_CMAKE_DIR} COMPONENT development)
configure_package_config_file(cmake/quillonConfig.cmake.in quillonConfig.cmake INSTALL_DESTINATION ${QUILLON_CMAKE_DIR})
write_basic_package_version_file(quillonConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/quillonConfig.cmake ${PROJECT_BINARY_DIR}/quillonConfigVersion.cmake
  DESTINATION ${QUILLON_CMAKE_DIR} COMPONENT development)

# Debian packages, one a part: `cpack` in the build folder.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR libquillon)
set(CPACK_PACKAGE_CONTACT "The libquillon developers <quillon@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_COMPONENTS_ALL runtime development)
if(CMAKE_CROSSCOMPILING AND CMAKE_SYSTEM_PROCESSOR STREQUAL aarch64)
  # cpack would take the architecture of the machine that it runs on.
  set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE arm64)
endif()

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libquillon0)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "Client library of a switch's driver process
 Asks the process that owns the switching chips, PHYs, buses and the PoE
 controller of an Ethernet switch, on behalf of all others.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libquillon-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libquillon0 (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Headers of the client library of a switch's driver process
 What programs that use libquillon are built with: C headers, pkg-config and
 CMake files.")

if(QUILLON_HOST)
  list(APPEND CPACK_COMPONENTS_ALL workstation)
  string(APPEND CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS ", quillon-workstation (= ${PROJECT_VERSION})")
  set(CPACK_DEBIAN_WORKSTATION_PACKAGE_NAME quillon-workstation)
  set(CPACK_DEBIAN_WORKSTATION_PACKAGE_SECTION devel)
  set(CPACK_DEBIAN_WORKSTATION_PACKAGE_SHLIBDEPS ON)
  set(CPACK_COMPONENT_WORKSTATION_DESCRIPTION "Software driver process and platform for programs of a switch
 Runs programs that use libquillon without a switch: the platform functions on
 ordinary Linux, a software driver process, and tools.")
endif()
include(CPack)

# Runs the tests of the library alone and tells which of its lines and branches they reach: a summary here, each line in
# coverage/index.html.
find_program(GCOVR gcovr REQUIRED)
get_property(library_tests GLOBAL PROPERTY library_tests)
foreach(test ${library_tests})
  list(APPEND run_library_tests COMMAND ${test} --gtest_brief=1)
endforeach()

add_custom_target(coverage
  # Counts of earlier runs would be added to.
  COMMAND ${GCOVR} --root ${PROJECT_SOURCE_DIR} --object-directory ${PROJECT_BINARY_DIR} --delete --output /dev/null
  ${run_library_tests}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/coverage
  COMMAND ${GCOVR} --root ${PROJECT_SOURCE_DIR} --object-directory ${PROJECT_BINARY_DIR}
    # An assertion that fails ends the process before it can write what it has counted.
    --exclude-branches-by-pattern "^ *assert\\("
    --filter "${PROJECT_SOURCE_DIR}/(ipc|swdrv|amtrdrv|nicdrv|swdrvl4|swdrvl3|nmtrdrv|devrm)/"
    --txt --print-summary --html-details ${PROJECT_BINARY_DIR}/coverage/index.html
  USES_TERMINAL
  VERBATIM)

quillon_test(rule_pattern_test
  devrm/pattern_builder_test.cpp
  devrm/pattern_dump_test.cpp
)
target_link_libraries(rule_pattern_test PRIVATE quillon test_support)
set_property(GLOBAL APPEND PROPERTY library_tests rule_pattern_test)

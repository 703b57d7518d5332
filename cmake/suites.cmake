# add_suites(PROGRAM COMMAND ... [PROPERTIES NAME VALUE ...]): lets ctest run each suite of a GoogleTest program by
# itself, with a time limit of its own. The results are in results/SUITE.xml of the build folder.
function(add_suites program)
  cmake_parse_arguments(PARSE_ARGV 1 SUITE "" "" "COMMAND;PROPERTIES")
  get_target_property(SUITE_SOURCES ${program} SOURCES)
  list(FILTER SUITE_SOURCES INCLUDE REGEX "\\.cpp$")
  list(JOIN SUITE_COMMAND "\" \"" SUITE_COMMAND)
  list(JOIN SUITE_PROPERTIES " " SUITE_PROPERTIES)
  configure_file(cmake/suites.cmake.in ${program}_suites.cmake @ONLY)
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${CMAKE_BINARY_DIR}/${program}_suites.cmake)
endfunction()

# What knows nothing of Windows, on the build machine: its tests under the address and undefined-behaviour sanitizers,
# and a fuzzer for what comes out of a damaged scheme file.

add_compile_options(-g -fno-omit-frame-pointer -fsanitize=address,undefined -fno-sanitize-recover=all)
add_link_options(-fsanitize=address,undefined)

# The fuzzer instruments the code under test; for the tests the instrumentation is idle.
add_library(portable STATIC ${PORTABLE_SOURCES})
target_include_directories(portable PUBLIC src)
target_compile_options(portable PRIVATE -fsanitize=fuzzer-no-link)
target_link_options(portable INTERFACE -fsanitize=fuzzer-no-link)

add_subdirectory(${GOOGLETEST_SOURCE_DIR} googletest EXCLUDE_FROM_ALL)

file(GLOB PORTABLE_TESTS CONFIGURE_DEPENDS tests/portable/*.cpp)
add_executable(portable_tests ${PORTABLE_TESTS})
target_include_directories(portable_tests PRIVATE tests)
target_link_libraries(portable_tests PRIVATE portable gtest_main)
add_suites(portable_tests COMMAND ${CMAKE_BINARY_DIR}/portable_tests)

file(GLOB FUZZ_SOURCES CONFIGURE_DEPENDS tests/fuzz/*.cpp)
add_executable(fuzz_scheme_file ${FUZZ_SOURCES})
target_link_libraries(fuzz_scheme_file PRIVATE portable)
target_link_options(fuzz_scheme_file PRIVATE -fsanitize=fuzzer)

# The program, its tests and its benchmark for Windows.

enable_language(RC)
add_compile_definitions(WINVER=0x0601 _WIN32_WINNT=0x0601 NOMINMAX WIN32_LEAN_AND_MEAN STRICT)
set(CMAKE_RC_FLAGS "--codepage=65001")

# Everything but WinMain, so that the tests run what the program runs.
file(GLOB_RECURSE PRODUCT_SOURCES CONFIGURE_DEPENDS src/*.cpp)
list(FILTER PRODUCT_SOURCES EXCLUDE REGEX "/app/win_main\\.cpp$")
add_library(product STATIC ${PRODUCT_SOURCES})
target_include_directories(product PUBLIC src)
target_link_libraries(product PUBLIC
  comctl32 comdlg32 shell32 shlwapi ole32 oleaut32 uuid gdi32 user32 advapi32)

# Ninja does not see through an .rc file to the headers, pictures and manifest that it names.
file(GLOB_RECURSE RESOURCE_INPUTS CONFIGURE_DEPENDS
  src/*.rc src/*_ids.h src/resources/*.h src/resources/*.ico src/resources/*.bmp src/resources/*.manifest)
add_library(resources OBJECT src/resources/app.rc)
target_include_directories(resources PRIVATE src src/resources)
set_source_files_properties(src/resources/app.rc PROPERTIES OBJECT_DEPENDS "${RESOURCE_INPUTS}")

# One file that imports system DLLs only.
add_link_options(-static)

add_executable(manager WIN32 src/app/win_main.cpp $<TARGET_OBJECTS:resources>)
set_target_properties(manager PROPERTIES OUTPUT_NAME "Kelvanstead Scheme Manager")
target_link_libraries(manager PRIVATE product)
target_link_options(manager PRIVATE $<$<NOT:$<CONFIG:Debug>>:-s>)

add_subdirectory(${GOOGLETEST_SOURCE_DIR} googletest EXCLUDE_FROM_ALL)
# GCC 12 warns of its own string class inside GoogleTest.
target_compile_options(gtest PRIVATE -w)

file(GLOB_RECURSE TEST_SOURCES CONFIGURE_DEPENDS tests/*.cpp)
list(FILTER TEST_SOURCES EXCLUDE REGEX "/tests/fuzz/")
add_executable(tests ${TEST_SOURCES} $<TARGET_OBJECTS:resources>)
target_include_directories(tests PRIVATE tests)
target_link_libraries(tests PRIVATE product gtest_main)

file(GLOB BENCH_SOURCES CONFIGURE_DEPENDS bench/*.cpp)
if(BENCH_SOURCES)
  add_executable(bench EXCLUDE_FROM_ALL ${BENCH_SOURCES} $<TARGET_OBJECTS:resources>)
  target_link_libraries(bench PRIVATE product)
endif()

# The programs, their tests and their benchmark for Windows.

enable_language(RC)
add_compile_definitions(WINVER=0x0601 _WIN32_WINNT=0x0601 NOMINMAX WIN32_LEAN_AND_MEAN STRICT)
set(CMAKE_RC_FLAGS "--codepage=65001")

# One file that imports system DLLs only, without what nobody calls; the same from each build of a commit.
add_compile_options(-ffunction-sections -fdata-sections)
add_link_options(-static -Wl,--gc-sections -Wl,--no-insert-timestamp)

# What both programs stand on: no window, no sound, no message.
file(GLOB_RECURSE CORE_SOURCES CONFIGURE_DEPENDS
  src/base/*.cpp src/registry/*.cpp src/model/*.cpp src/schemefile/*.cpp src/allocation/*.cpp src/helper/*.cpp)
list(FILTER CORE_SOURCES EXCLUDE REGEX "/dialog/")
add_library(core STATIC ${CORE_SOURCES})
target_include_directories(core PUBLIC src)
target_link_libraries(core PUBLIC shlwapi ole32 oleaut32 uuid advapi32)

# Everything with windows but WinMain, so that the tests run what the program runs.
file(GLOB_RECURSE WINDOW_SOURCES CONFIGURE_DEPENDS src/*.cpp)
list(REMOVE_ITEM WINDOW_SOURCES ${CORE_SOURCES})
list(FILTER WINDOW_SOURCES EXCLUDE REGEX "/src/(cli/|app/win_main\\.cpp$)")
add_library(windows STATIC ${WINDOW_SOURCES})
target_link_libraries(windows PUBLIC core comctl32 comdlg32 shell32 gdi32)

# Ninja does not see through an .rc file to the headers, pictures and manifest that it names.
file(GLOB_RECURSE RESOURCE_INPUTS CONFIGURE_DEPENDS
  src/*.rc src/*_ids.h src/resources/*.h src/resources/*.ico src/resources/*.bmp src/resources/*.manifest)
add_library(resources OBJECT src/resources/app.rc)
target_include_directories(resources PRIVATE src src/resources)
set_source_files_properties(src/resources/app.rc PROPERTIES OBJECT_DEPENDS "${RESOURCE_INPUTS}")

set(STRIPPED $<$<NOT:$<CONFIG:Debug>>:-s>)

add_executable(manager WIN32 src/app/win_main.cpp $<TARGET_OBJECTS:resources>)
set_target_properties(manager PROPERTIES OUTPUT_NAME "Kelvanstead Scheme Manager")
target_link_libraries(manager PRIVATE windows)
target_link_options(manager PRIVATE ${STRIPPED})

# The two libraries of headers lie among the build machine's own, which the cross compiler must not see.
set(LIBRARY_HEADERS ${CMAKE_BINARY_DIR}/include)
file(MAKE_DIRECTORY ${LIBRARY_HEADERS})
foreach(library CLI nlohmann)
  file(CREATE_LINK /usr/include/${library} ${LIBRARY_HEADERS}/${library} SYMBOLIC)
endforeach()

file(GLOB CLI_SOURCES CONFIGURE_DEPENDS src/cli/*.cpp src/cli/*.rc)
add_executable(ksm ${CLI_SOURCES})
target_include_directories(ksm SYSTEM PRIVATE ${LIBRARY_HEADERS})
# std::filesystem costs 100 kB.
target_compile_definitions(ksm PRIVATE CLI11_HAS_FILESYSTEM=0)
# String streams are 30 kB larger in C++20.
set_source_files_properties(src/cli/command_line.cpp PROPERTIES COMPILE_OPTIONS -std=c++17)
# Nothing asks for a type at run time, and the names of all of CLI11's take 6 kB.
target_compile_options(ksm PRIVATE -fno-rtti)
target_link_options(ksm PRIVATE ${STRIPPED} -municode)

# These DLLs bring the window system with them, which takes longer than most commands: they are loaded when one of
# their functions is called. 32-bit Windows decorates the functions with the size of their arguments. They are named to
# the linker as needed, or it drops the code that loads them.
function(load_when_called dll)
  set(functions ${ARGN})
  set(symbols ${ARGN})
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    list(TRANSFORM functions REPLACE "@.*" "")
    set(symbols ${functions})
  else()
    list(TRANSFORM symbols PREPEND "_")
  endif()
  list(JOIN functions "\n" exports)
  list(TRANSFORM symbols PREPEND "-Wl,--undefined=")
  set(library ${CMAKE_BINARY_DIR}/delayed-${dll})
  file(WRITE ${library}.def "LIBRARY ${dll}.dll\nEXPORTS\n${exports}\n")
  execute_process(COMMAND ${CMAKE_DLLTOOL} --kill-at --input-def ${library}.def --output-delaylib ${library}.a
    COMMAND_ERROR_IS_FATAL ANY)
  target_link_options(ksm PRIVATE ${symbols} ${library}.a)
endfunction()
load_when_called(ole32 CoCreateInstance@20 CoInitialize@4 CoUninitialize@0)
load_when_called(shlwapi SHRegGetUSValueA@32 SHRegSetUSValueW@24)
target_link_libraries(ksm PRIVATE core delayimp)

add_subdirectory(${GOOGLETEST_SOURCE_DIR} googletest EXCLUDE_FROM_ALL)
# GCC 12 warns of its own string class inside GoogleTest.
target_compile_options(gtest PRIVATE -w)

file(GLOB_RECURSE TEST_SOURCES CONFIGURE_DEPENDS tests/*.cpp)
list(FILTER TEST_SOURCES EXCLUDE REGEX "/tests/(fuzz|command-line)/")
add_executable(tests ${TEST_SOURCES} $<TARGET_OBJECTS:resources>)
target_include_directories(tests PRIVATE tests)
target_link_libraries(tests PRIVATE windows oleacc gtest_main)
# They share one registry and one display.
add_suites(tests COMMAND ${CMAKE_SOURCE_DIR}/tools/wine-run ${CMAKE_BINARY_DIR}/tests.exe
  PROPERTIES RESOURCE_LOCK wine)

# For the transcripts of the command line.
add_executable(guard tests/command-line/guard.cpp)
target_link_options(guard PRIVATE ${STRIPPED})
add_library(environment MODULE samples/environment/environment.cpp)
set_target_properties(environment PROPERTIES PREFIX "" OUTPUT_NAME Environment)
target_link_libraries(environment PRIVATE advapi32)
target_link_options(environment PRIVATE -Wl,--kill-at)

file(GLOB BENCH_SOURCES CONFIGURE_DEPENDS bench/*.cpp)
if(BENCH_SOURCES)
  add_executable(bench EXCLUDE_FROM_ALL
    ${BENCH_SOURCES} tests/support/imported_calls.cpp $<TARGET_OBJECTS:resources>)
  target_include_directories(bench PRIVATE tests)
  target_link_libraries(bench PRIVATE windows)
endif()

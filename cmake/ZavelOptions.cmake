# Options shared by every target, and the helpers that the folders' own lists use.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_library(zavel_options INTERFACE)
# Index keys compare as signed bytes, so the signedness of char is fixed once, here.
target_compile_options(zavel_options INTERFACE
  -fsigned-char -Wall -Wextra -Wpedantic -Wshadow -Wcast-align -Wimplicit-fallthrough -Werror
  $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor -Woverloaded-virtual>
  # g++ 12, optimising, sees overlaps in std::string that can't be (its bugs 105329 and 105651).
  $<$<AND:$<COMPILE_LANG_AND_ID:CXX,GNU>,$<NOT:$<CONFIG:Debug>>>:-Wno-restrict>)
target_include_directories(zavel_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(ZAVEL_SANITIZE)
  add_compile_options(-fsanitize=${ZAVEL_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${ZAVEL_SANITIZE})
endif()

# What the sanitizers find, they find in the system's own code, and there every check is on. Two of them, of null and of
# misaligned references, stand at nearly every expression, and cost two fifths of what compiling a test takes; in code
# that is no part of the system they are left out: address sanitizer ends a test that follows a null pointer.
set(zavel_fewer_checks "")
if(ZAVEL_SANITIZE)
  set(zavel_fewer_checks -fno-sanitize=null,alignment)
endif()

# The standard headers that most sources begin with, read once for all. In the sanitizer build alone: the release build
# shows where a source forgets to include what it uses.
set(zavel_read_once OFF)
if(ZAVEL_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  set(zavel_read_once ON)
  file(WRITE ${PROJECT_BINARY_DIR}/read-once/headers.cpp "")
  add_library(zavel_headers STATIC ${PROJECT_BINARY_DIR}/read-once/headers.cpp)
  target_link_libraries(zavel_headers PRIVATE zavel_options)
  target_precompile_headers(zavel_headers PRIVATE <algorithm> <cstdint> <cstring> <functional> <map>
    <memory> <optional> <string> <string_view> <utility> <variant> <vector>)
endif()

# zavel_source_code(TARGET...): libraries of the system's own code.
function(zavel_source_code)
  if(zavel_read_once)
    foreach(name IN LISTS ARGN)
      target_precompile_headers(${name} REUSE_FROM zavel_headers)
    endforeach()
  endif()
endfunction()

# zavel_command_line_code(FILE...): sources that read a command line. The library for that is all in its headers, and
# its code checked and optimised in five sources took a tenth of the sanitizer build.
function(zavel_command_line_code)
  if(ZAVEL_SANITIZE)
    set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS "-O0;${zavel_fewer_checks}"
      SKIP_PRECOMPILE_HEADERS ON)
  endif()
endfunction()

# zavel_module(NAME SOURCES... [LINKS targets...]): one folder of the house as a static library.
function(zavel_module name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINKS" ${ARGN})
  if(NOT arg_SOURCES)
    file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/empty.cpp "")
    set(arg_SOURCES ${CMAKE_CURRENT_BINARY_DIR}/empty.cpp)
  endif()
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC zavel_options ${arg_LINKS})
  zavel_source_code(${name})
endfunction()

# zavel_test_code(TARGET...): what is built for tests alone. Two thirds of a whole build's time went into optimising
# tests and reading GoogleTest's headers: the tests' own code stays as written, and the headers are read once.
function(zavel_test_code)
  foreach(name IN LISTS ARGN)
    target_compile_options(${name} PRIVATE -O0 ${zavel_fewer_checks})
    target_precompile_headers(${name} REUSE_FROM zavel_test_headers)
    get_target_property(sources ${name} SOURCES)
    list(FILTER sources INCLUDE REGEX "\\.c$")
    set_source_files_properties(${sources} PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
  endforeach()
endfunction()

# zavel_test(NAME SOURCES... LINKS targets...): one GoogleTest program, its cases known to ctest.
function(zavel_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE zavel_options ${arg_LINKS} GTest::gtest GTest::gtest_main)
  zavel_test_code(${name})
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
endfunction()

# zavel_port_module(NAME SOURCES... LINKS targets...): a part of the port that programs load when they need it. It
# stands in the libraries' folder of build tree and installed tree alike, below "zavel", and shares no C++ library
# with the program that loads it.
function(zavel_port_module name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} MODULE ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/port/linux)
  target_link_libraries(${name} PRIVATE zavel_options ${arg_LINKS})
  target_link_options(${name} PRIVATE -Wl,--as-needed)
  set_target_properties(${name} PROPERTIES PREFIX ""
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR}/zavel)
  add_dependencies(zavel_port_base ${name})
  install(TARGETS ${name} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/zavel COMPONENT Runtime)
endfunction()

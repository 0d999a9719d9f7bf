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

# zavel_module(NAME SOURCES... [LINKS targets...]): one folder of the house as a static library.
function(zavel_module name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINKS" ${ARGN})
  if(NOT arg_SOURCES)
    file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/empty.cpp "")
    set(arg_SOURCES ${CMAKE_CURRENT_BINARY_DIR}/empty.cpp)
  endif()
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC zavel_options ${arg_LINKS})
endfunction()

# zavel_test_code(TARGET...): what is built for tests alone. Two thirds of a whole build's time went into optimising
# tests and reading GoogleTest's headers: the tests' own code stays as written, and the headers are read once.
function(zavel_test_code)
  foreach(name IN LISTS ARGN)
    target_compile_options(${name} PRIVATE -O0)
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

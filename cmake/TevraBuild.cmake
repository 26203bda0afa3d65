# What all targets share: language, warnings, sanitizers, and the three kinds of target.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

option(TEVRA_SANITIZE "Build with the address and undefined behaviour sanitizers" OFF)
option(TEVRA_WERROR "Take warnings as errors" OFF)

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

add_library(tevra_flags INTERFACE)
target_compile_options(tevra_flags INTERFACE -Wall -Wextra -Wshadow -Wnon-virtual-dtor -Wold-style-cast
                                             -Woverloaded-virtual
                       # g++ 12 sees overlapping and endless copies in std::string where there are none, and values
                       # of the standard library as not set that are.
                       $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict;-Wno-maybe-uninitialized;-Wno-stringop-overflow>)
target_include_directories(tevra_flags INTERFACE "${CMAKE_SOURCE_DIR}")
if(TEVRA_WERROR)
  target_compile_options(tevra_flags INTERFACE -Werror)
endif()
if(TEVRA_SANITIZE)
  # Everywhere, or a container filled on one side of a library border would look overrun on the other.
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# tevra_library(name SOURCES a.cpp .. [LINK libs..]): routines or screens of one folder.
function(tevra_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK;PRIVATE_LINK" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC tevra_flags ${arg_LINK} PRIVATE ${arg_PRIVATE_LINK})
endfunction()

function(tevra_program name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE tevra_flags ${arg_LINK})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
endfunction()

# tevra_test(name SOURCES a.cpp .. [LINK libs..]): a GoogleTest program, which CTest runs as one test.
function(tevra_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE tevra_flags ${arg_LINK} GTest::gtest)
  target_precompile_headers(${name} PRIVATE <gtest/gtest.h> <string> <vector>)
  if(arg_SOURCES MATCHES "main.cpp")  # of screens, with the toolkit and a locale of its own
    target_compile_definitions(${name} PRIVATE TEVRA_TESTS="${CMAKE_SOURCE_DIR}/tests")
  endif()
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;FONTCONFIG_FILE=${CMAKE_SOURCE_DIR}/tests/fonts.conf")
endfunction()

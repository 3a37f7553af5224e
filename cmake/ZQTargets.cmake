# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

# Compile options and target helpers shared by all folders.

add_library(zq_options INTERFACE)
target_compile_options(zq_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wold-style-cast -Wcast-qual
  -Wcast-align -Wformat=2 -Wmissing-declarations -Wundef -Wextra-semi -Wdouble-promotion
  -Wnon-virtual-dtor -Woverloaded-virtual
  # Compiled together, sources shadow each other's names.
  $<$<NOT:$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>>:-Wshadow>
  # Optimised, GCC reports it for the insides of the standard library that it has inlined.
  $<$<NOT:$<OR:$<CONFIG:RelWithDebInfo>,$<CONFIG:Release>>>:-Wnull-dereference>
  $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wduplicated-branches -Wlogical-op -Wsuggest-override>
  $<$<BOOL:${ZQ_WARNINGS_AS_ERRORS}>:-Werror>)
if(ZQ_SANITIZE)
  add_compile_options(-fsanitize=${ZQ_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${ZQ_SANITIZE})
else()
  # clang leaves the sanitizer runtime undefined in shared objects, so only plain builds check this.
  target_link_options(zq_options INTERFACE
    $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,SHARED_LIBRARY>:-Wl,--no-undefined>)
endif()

# What nearly every source of a target reads first, read once for all of them, and several sources
# compiled in one go: clang gets through everything in a third of the time then. TESTS: the first
# only, and for tests, which GCC compiles in two thirds of the time. Never to be relied on: other
# builds, and clang-tidy, go without. The sources named have names that others have too.
set(ZQ_PRECOMPILED_HEADERS OFF CACHE STRING "Precompile what many sources include: ON, TESTS, OFF")
function(zq_precompile target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "ALONE")
  set(ARGN ${arg_UNPARSED_ARGUMENTS})
  if(ZQ_PRECOMPILED_HEADERS STREQUAL "TESTS" AND NOT "<gtest/gtest.h>" IN_LIST ARGN)
    return()
  endif()
  if(ZQ_PRECOMPILED_HEADERS)
    target_precompile_headers(${target} PRIVATE <algorithm> <array> <chrono> <functional> <map>
      <memory> <optional> <string> <thread> <utility> <vector> ${ARGN})
  endif()
  if(ZQ_PRECOMPILED_HEADERS STREQUAL "ON")
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 6)
    set_source_files_properties(${arg_ALONE} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  endif()
endfunction()

# Lines and functions are enough for backtraces; GCC spends a quarter of its time on the rest. The
# sources named define what a library exports, and the check of its binary interface reads of them.
option(ZQ_BRIEF_DEBUG_INFO "Debug information for backtraces only" OFF)
function(zq_brief_debug_info target)
  if(ZQ_BRIEF_DEBUG_INFO)
    target_compile_options(${target} PRIVATE -g1)
    set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS -g2)
  endif()
endfunction()

# The feature browser links either the real camera side and widget or the tests' doubles of both.
# CMake refuses a target that mixes them; the linker would silently take whichever comes first.
function(zq_collaborators target kind)
  set_property(TARGET ${target} PROPERTY INTERFACE_ZQ_COLLABORATORS ${kind})
  set_property(TARGET ${target} APPEND PROPERTY COMPATIBLE_INTERFACE_STRING ZQ_COLLABORATORS)
endfunction()

# A public shared library: named after Qt 6 when that is below, versioned, installed and exported as
# ZQ::<name>. It shows only what <name>.map beside it says.
function(zq_add_library name)
  set(map ${CMAKE_CURRENT_SOURCE_DIR}/${name}.map)
  add_library(${name} SHARED ${ARGN})
  add_library(ZQ::${name} ALIAS ${name})
  set_target_properties(${name} PROPERTIES OUTPUT_NAME ${name}${zq_suffix}
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  target_compile_features(${name} PUBLIC cxx_std_17)
  target_link_libraries(${name} PUBLIC ZQ::Contract PRIVATE $<BUILD_INTERFACE:zq_options>)
  target_link_options(${name} PRIVATE -Wl,--version-script=${map})
  set_property(TARGET ${name} APPEND PROPERTY LINK_DEPENDS ${map})
  zq_collaborators(${name} real)
  set_property(GLOBAL APPEND PROPERTY ZQ_LIBRARIES ${name})
endfunction()

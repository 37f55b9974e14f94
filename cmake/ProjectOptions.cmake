# SPDX-License-Identifier: GPL-3.0-or-later
# Everything that all targets share: language level, warnings, sanitizers.
set(VISTRUM_SANITIZE "" CACHE STRING "Value of -fsanitize, such as address,undefined")
# For builds from nothing: takes two thirds of the time. Names that are local to a source differ from those of the others
# (a layout test sees to it), so that none is taken for another.
option(VISTRUM_UNITY "Compile the sources of a module in groups" OFF)
option(VISTRUM_FUZZ "Build the fuzzing targets (clang only)" OFF)

add_library(project_options INTERFACE)
target_compile_features(project_options INTERFACE cxx_std_20)
target_include_directories(project_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_definitions(project_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS)
# Contracted multiply-add would make the last bit of a result depend on the processor. In a group of sources a name of one
# is in sight of the next, which may use it for something of its own.
target_compile_options(project_options INTERFACE
  -Wall -Wextra -Wpedantic $<$<NOT:$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>>:-Wshadow> -Wconversion
  -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual
  -ffp-contract=off)
# Lets the compiler cache see into precompiled headers.
target_compile_options(project_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)

if(VISTRUM_SANITIZE)
  target_compile_options(project_options INTERFACE
    -fsanitize=${VISTRUM_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(project_options INTERFACE -fsanitize=${VISTRUM_SANITIZE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU") # instrumented values of a variant look unset to it
    target_compile_options(project_options INTERFACE -Wno-maybe-uninitialized)
  endif()
endif()

# There are some three hundred programs with the tests: this linker takes a fifth of the time of the usual one.
include(CheckLinkerFlag)
check_linker_flag(CXX -fuse-ld=gold VISTRUM_HAS_GOLD)
if(VISTRUM_HAS_GOLD)
  target_link_options(project_options INTERFACE -fuse-ld=gold)
endif()

# Without the instrumentation a fuzzer is blind; the fuzzer's own main() comes with the targets alone.
if(VISTRUM_FUZZ)
  target_compile_options(project_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# What uses Boost.Asio links this, too: the fences in its headers are not followed by the thread sanitizer, and are not
# needed beside its locks.
add_library(asio_options INTERFACE)
target_link_libraries(asio_options INTERFACE Boost::headers)
if(VISTRUM_SANITIZE MATCHES "thread" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(asio_options INTERFACE -Wno-tsan)
endif()

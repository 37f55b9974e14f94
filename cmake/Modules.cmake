# SPDX-License-Identifier: GPL-3.0-or-later
# One folder of src/ is one module. add_module(NAME) makes
#   NAME         the core library: Qt Core and Gui only
#   NAME_scene   graphics items, from SCENE sources: Widgets, no panel
#   NAME_panel   forms and undo commands, from PANEL sources: Widgets
# and gathers them in vistrum_core, vistrum_scene and vistrum_panels. USES names the modules whose headers the folder may
# include: the link graph and the layout test both read it, so an include that points up does not build or does not pass.
# MOC marks a core library with signals.

add_library(vistrum_core INTERFACE)
add_library(vistrum_scene INTERFACE)
add_library(vistrum_panels INTERFACE)
target_link_libraries(vistrum_scene INTERFACE vistrum_core)
target_link_libraries(vistrum_panels INTERFACE vistrum_scene)

# Headers of Qt and of the language are most of what a source includes: each set is compiled once. No header of ours is in
# a set, so that a change of ours never builds everything anew.
function(_without_test_folders target)
  # Qt's test library defines them anew for each folder, and headers are shared only among equal definitions.
  target_compile_options(${target} PRIVATE -UQT_TESTCASE_BUILDDIR -UQT_TESTCASE_SOURCEDIR)
endfunction()

# For tests: more optimisation takes the compiler longer than it saves when they run once.
add_library(test_options INTERFACE)
target_compile_options(test_options INTERFACE $<$<CONFIG:Release>:-O1>)
target_link_libraries(test_options INTERFACE project_options)

function(_add_precompiled set options)
  add_library(precompiled_${set} OBJECT ${PROJECT_SOURCE_DIR}/cmake/precompiled/${set}.cpp)
  set_target_properties(precompiled_${set} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
  target_link_libraries(precompiled_${set} PRIVATE ${options} ${ARGN})
  target_precompile_headers(precompiled_${set} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/precompiled/${set}.h)
  _without_test_folders(precompiled_${set})
endfunction()
_add_precompiled(core project_options Qt6::Core Qt6::Gui)
_add_precompiled(widgets project_options Qt6::Widgets)
_add_precompiled(tests test_options Qt6::Gui Qt6::Test)
_add_precompiled(window_tests test_options Qt6::Widgets Qt6::Test)

# use_precompiled(TARGET core|widgets|tests|window_tests)
function(use_precompiled target set)
  target_precompile_headers(${target} REUSE_FROM precompiled_${set})
  _without_test_folders(${target})
endfunction()

# The sources of a library in groups, where the preset says so: half of the time is headers.
function(compile_in_groups target)
  if(VISTRUM_UNITY)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 12)
  endif()
endfunction()

function(_add_layer target gathering headers)
  target_link_libraries(${target} PUBLIC ${ARGN})
  compile_in_groups(${target})
  use_precompiled(${target} ${headers})
  target_link_libraries(${gathering} INTERFACE ${target})
endfunction()

function(add_module name)
  cmake_parse_arguments(MODULE "MOC" "" "CORE;SCENE;PANEL;USES;LIBRARIES" ${ARGN})
  set(core ${MODULE_USES})
  if(MODULE_CORE)
    add_library(${name} STATIC ${MODULE_CORE})
    set_target_properties(${name} PROPERTIES AUTOUIC OFF AUTORCC OFF AUTOMOC ${MODULE_MOC})
    _add_layer(${name} vistrum_core core project_options Qt6::Core Qt6::Gui ${MODULE_USES} ${MODULE_LIBRARIES})
    set(core ${name})
  endif()
  if(MODULE_SCENE)
    set(scenes)
    foreach(used IN LISTS MODULE_USES)
      if(TARGET ${used}_scene)
        list(APPEND scenes ${used}_scene)
      endif()
    endforeach()
    add_library(${name}_scene STATIC ${MODULE_SCENE})
    _add_layer(${name}_scene vistrum_scene widgets project_options Qt6::Widgets Qt6::Svg ${core} ${scenes})
    list(APPEND core ${name}_scene)
  endif()
  if(MODULE_PANEL)
    set(panels)
    foreach(used IN LISTS MODULE_USES)
      if(TARGET ${used}_panel)
        list(APPEND panels ${used}_panel)
      endif()
    endforeach()
    add_library(${name}_panel STATIC ${MODULE_PANEL})
    _add_layer(${name}_panel vistrum_panels widgets project_options Qt6::Widgets Qt6::OpenGLWidgets ${core} ${panels})
  endif()
endfunction()

# add_module_test(detection VelocityScanpathBuilder [LIBRARIES ...] [WINDOW]) builds
# tests/detection/TestVelocityScanpathBuilder.cpp; WINDOW marks a test that opens windows.
function(add_module_test module name)
  cmake_parse_arguments(TEST "WINDOW" "" "LIBRARIES" ${ARGN})
  set(target test_${module}_${name})
  set(source ${CMAKE_SOURCE_DIR}/tests/${module}/Test${name}.cpp)
  set(moc ${CMAKE_CURRENT_BINARY_DIR}/Test${name}.moc)
  add_executable(${target} ${source} ${moc})
  # A test is one file that includes its own moc output: no search for others, no file of them to compile.
  set_target_properties(${target} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
  qt_generate_moc(${source} ${moc} TARGET ${target})
  target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
  if(TARGET ${module})
    target_link_libraries(${target} PRIVATE ${module})
  endif()
  target_link_libraries(${target} PRIVATE test_options Qt6::Test test_support ${TEST_LIBRARIES})
  if(TEST_LIBRARIES MATCHES "scene|panel|vistrum_app|batch_run")
    use_precompiled(${target} window_tests)
  else()
    use_precompiled(${target} tests)
  endif()
  add_test(NAME ${module}.${name} COMMAND ${target})
  set_tests_properties(${module}.${name} PROPERTIES TIMEOUT 600)
  if(TEST_WINDOW)
    # There is one pointer and one focus on a display: what hovers in one window is not beneath another's mouse.
    set_tests_properties(${module}.${name} PROPERTIES LABELS window RESOURCE_LOCK display)
  endif()
endfunction()

# add_module_benchmark(detection StandardScanpathBuilder) builds benchmarks/detection/BenchmarkStandardScanpathBuilder.cpp.
function(add_module_benchmark module name)
  cmake_parse_arguments(BENCHMARK "" "" "LIBRARIES" ${ARGN})
  set(target benchmark_${module}_${name})
  add_executable(${target} ${CMAKE_SOURCE_DIR}/benchmarks/${module}/Benchmark${name}.cpp)
  target_link_libraries(${target} PRIVATE project_options ${module} benchmark::benchmark ${BENCHMARK_LIBRARIES})
  set_target_properties(${target} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
  use_precompiled(${target} core)
endfunction()

# add_module_fuzzer(import SetFile) builds fuzz/import/FuzzSetFile.cpp. Its seeds lie in fuzz/import/SetFile/, its
# dictionary is fuzz/import/SetFile.dict.
function(add_module_fuzzer module name)
  set(target fuzz_${module}_${name})
  add_executable(${target} Fuzz${name}.cpp)
  target_include_directories(${target} PRIVATE ${CMAKE_SOURCE_DIR}/fuzz)
  target_link_libraries(${target} PRIVATE project_options ${module})
  target_link_options(${target} PRIVATE -fsanitize=fuzzer)
  set_target_properties(${target} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
  use_precompiled(${target} core)
  add_dependencies(fuzzers ${target})
endfunction()

# add_own_library(vistrum_video SOURCES ... LIBRARIES ...) builds a library that is loaded on demand; see
# base/OwnLibrary.h.
function(add_own_library name)
  cmake_parse_arguments(OWN "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_library(${name} MODULE ${OWN_SOURCES})
  target_link_libraries(${name} PRIVATE project_options ${OWN_LIBRARIES})
  set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF
    LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib/vistrum)
  install(TARGETS ${name} LIBRARY DESTINATION lib/vistrum)
endfunction()

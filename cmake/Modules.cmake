# One folder of src/ is one module. add_module(NAME) makes
#   NAME         the core library: Qt Core and Gui only
#   NAME_scene   graphics items, from SCENE sources: Widgets, no panel
#   NAME_panel   forms and undo commands, from PANEL sources: Widgets
# and gathers them in vistrum_core, vistrum_scene and vistrum_panels. USES names the modules whose headers the folder may
# include: the link graph and the layout test both read it, so an include that points up does not build or does not pass.

add_library(vistrum_core INTERFACE)
add_library(vistrum_scene INTERFACE)
add_library(vistrum_panels INTERFACE)
target_link_libraries(vistrum_scene INTERFACE vistrum_core)
target_link_libraries(vistrum_panels INTERFACE vistrum_scene)

function(_add_layer target gathering)
  target_link_libraries(${target} PUBLIC ${ARGN})
  target_link_libraries(${gathering} INTERFACE ${target})
endfunction()

function(add_module name)
  cmake_parse_arguments(MODULE "" "" "CORE;SCENE;PANEL;USES;LIBRARIES" ${ARGN})
  set(core ${MODULE_USES})
  if(MODULE_CORE)
    add_library(${name} STATIC ${MODULE_CORE})
    _add_layer(${name} vistrum_core project_options Qt6::Core Qt6::Gui ${MODULE_USES} ${MODULE_LIBRARIES})
    set(core ${name})
  endif()
  if(MODULE_SCENE)
    add_library(${name}_scene STATIC ${MODULE_SCENE})
    _add_layer(${name}_scene vistrum_scene project_options Qt6::Widgets Qt6::Svg ${core})
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
    _add_layer(${name}_panel vistrum_panels project_options Qt6::Widgets Qt6::OpenGLWidgets ${core} ${panels})
  endif()
endfunction()

# add_module_test(detection VelocityScanpathBuilder [LIBRARIES ...] [WINDOW]) builds
# tests/detection/TestVelocityScanpathBuilder.cpp; WINDOW marks a test that opens windows.
function(add_module_test module name)
  cmake_parse_arguments(TEST "WINDOW" "" "LIBRARIES" ${ARGN})
  set(target test_${module}_${name})
  add_executable(${target} ${CMAKE_SOURCE_DIR}/tests/${module}/Test${name}.cpp)
  if(TARGET ${module})
    target_link_libraries(${target} PRIVATE ${module})
  endif()
  target_link_libraries(${target} PRIVATE project_options Qt6::Test test_support ${TEST_LIBRARIES})
  add_test(NAME ${module}.${name} COMMAND ${target})
  set_tests_properties(${module}.${name} PROPERTIES TIMEOUT 600)
  if(TEST_WINDOW)
    set_tests_properties(${module}.${name} PROPERTIES LABELS window)
  endif()
endfunction()

# add_module_benchmark(detection StandardScanpathBuilder) builds benchmarks/detection/BenchmarkStandardScanpathBuilder.cpp.
function(add_module_benchmark module name)
  cmake_parse_arguments(BENCHMARK "" "" "LIBRARIES" ${ARGN})
  set(target benchmark_${module}_${name})
  add_executable(${target} ${CMAKE_SOURCE_DIR}/benchmarks/${module}/Benchmark${name}.cpp)
  target_link_libraries(${target} PRIVATE project_options ${module} benchmark::benchmark ${BENCHMARK_LIBRARIES})
endfunction()

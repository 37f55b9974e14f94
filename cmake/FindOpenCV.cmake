# SPDX-License-Identifier: GPL-3.0-or-later
# The OpenCV modules asked for as COMPONENTS, each as the target opencv_NAME. OpenCV's own package file insists on all
# sixty modules and with them on some 750 MB that nothing here uses; this one needs no more than the modules' own packages.
find_path(OpenCV_INCLUDE_DIR opencv2/core/version.hpp PATH_SUFFIXES opencv4)
if(OpenCV_INCLUDE_DIR)
  file(STRINGS ${OpenCV_INCLUDE_DIR}/opencv2/core/version.hpp lines REGEX "define CV_VERSION_(MAJOR|MINOR|REVISION) ")
  string(REGEX REPLACE "[^0-9]+" "." OpenCV_VERSION "${lines}")
  string(REGEX REPLACE "^\\.|\\.$" "" OpenCV_VERSION "${OpenCV_VERSION}")
endif()

foreach(component IN LISTS OpenCV_FIND_COMPONENTS)
  find_library(OpenCV_${component}_LIBRARY opencv_${component})
  find_file(OpenCV_${component}_HEADER opencv2/${component}.hpp PATHS ${OpenCV_INCLUDE_DIR} NO_DEFAULT_PATH)
  if(OpenCV_${component}_LIBRARY AND OpenCV_${component}_HEADER)
    set(OpenCV_${component}_FOUND TRUE)
  endif()
endforeach()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(OpenCV
  REQUIRED_VARS OpenCV_INCLUDE_DIR VERSION_VAR OpenCV_VERSION HANDLE_COMPONENTS)

foreach(component IN LISTS OpenCV_FIND_COMPONENTS)
  if(OpenCV_${component}_FOUND AND NOT TARGET opencv_${component})
    add_library(opencv_${component} UNKNOWN IMPORTED)
    set_target_properties(opencv_${component} PROPERTIES
      IMPORTED_LOCATION ${OpenCV_${component}_LIBRARY}
      INTERFACE_INCLUDE_DIRECTORIES ${OpenCV_INCLUDE_DIR})
  endif()
endforeach()

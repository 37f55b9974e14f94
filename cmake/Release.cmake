# SPDX-License-Identifier: GPL-3.0-or-later
# cmake -D VISTRUM_RELEASE=... -D SOURCE=Release.cpp.in -D TARGET=Release.cpp -P Release.cmake: writes the commit that the
# sources stand at into TARGET; an unchanged file stays as it is, so that nothing is built anew.
get_filename_component(folder ${SOURCE} DIRECTORY)
execute_process(COMMAND git -C ${folder} rev-parse --short=12 HEAD
  OUTPUT_VARIABLE VISTRUM_COMMIT OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
if(NOT VISTRUM_COMMIT)
  set(VISTRUM_COMMIT unknown)
endif()
configure_file(${SOURCE} ${TARGET} @ONLY)

# SPDX-License-Identifier: GPL-3.0-or-later
# cmake --install: programs, what they read at run time, and what a desktop shows of them.
include(GNUInstallDirs)

foreach(program vistrum vistrum-batch vistrum-import gaze-simulator tracker-simulator)
  if(TARGET ${program})
    install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  endif()
endforeach()
install(FILES data/factory_settings.ini DESTINATION ${CMAKE_INSTALL_DATADIR}/vistrum)
install(DIRECTORY data/layouts DESTINATION ${CMAKE_INSTALL_DATADIR}/vistrum)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DATADIR}/vistrum)
install(FILES data/vistrum.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES data/org.vistrum.Vistrum.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES README.md CHANGELOG.md CITATION.cff LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES data/icons/vistrum.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

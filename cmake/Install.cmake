# cmake --install: programs, what they read at run time, and what a desktop shows of them.
include(GNUInstallDirs)

foreach(program vistrum vistrum-batch gaze-simulator)
  if(TARGET ${program})
    install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  endif()
endforeach()
install(FILES data/factory_settings.ini DESTINATION ${CMAKE_INSTALL_DATADIR}/vistrum)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DATADIR}/vistrum)
install(FILES data/vistrum.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES data/icons/vistrum.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

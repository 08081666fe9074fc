include(GNUInstallDirs)
install(TARGETS vellumark-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(VELLUMARK_DESKTOP)
  install(TARGETS vellumark RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES packaging/vellumark.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES packaging/vellumark.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()

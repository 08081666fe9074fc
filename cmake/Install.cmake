include(GNUInstallDirs)
set(CMAKE_INSTALL_DOCDIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/vellumark)
include(cmake/Release.cmake)
find_program(GZIP_PROGRAM gzip REQUIRED)

set(made ${CMAKE_BINARY_DIR}/packaging)
set(source ${PROJECT_SOURCE_DIR}/packaging)
set(made_files)

# add_compressed(FILE): FILE.gz beside it, the same bytes from the same text.
function(add_compressed file)
  add_custom_command(
    OUTPUT ${file}.gz
    COMMAND ${GZIP_PROGRAM} -9nkf ${file}
    DEPENDS ${file}
    VERBATIM)
  set(made_files ${made_files} ${file}.gz PARENT_SCOPE)
endfunction()

# What the program says of its own words can't go stale.
set(COMMANDS @COMMANDS@)
configure_file(${source}/vellumark-cli.1.in ${made}/vellumark-cli.1.in @ONLY)
add_custom_command(
  OUTPUT ${made}/vellumark-cli.1
  COMMAND ${CMAKE_COMMAND} -P ${PROJECT_SOURCE_DIR}/cmake/Manual.cmake $<TARGET_FILE:vellumark-cli>
          ${made}/vellumark-cli.1.in ${made}/vellumark-cli.1
  DEPENDS vellumark-cli ${made}/vellumark-cli.1.in cmake/Manual.cmake
  VERBATIM)
add_compressed(${made}/vellumark-cli.1)
foreach(shell bash zsh)
  add_custom_command(
    OUTPUT ${made}/completion.${shell}
    COMMAND vellumark-cli completion ${shell} > ${made}/completion.${shell}
    DEPENDS vellumark-cli
    VERBATIM)
  list(APPEND made_files ${made}/completion.${shell})
endforeach()

install(TARGETS vellumark-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${made}/vellumark-cli.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${made}/completion.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME vellumark-cli)
# Debian's zsh looks into another folder below /usr than below /usr/local.
install(
  CODE "set(made [[${made}]])
set(share [[${CMAKE_INSTALL_DATADIR}]])"
  CODE [[
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  set(folder zsh/vendor-completions)
else()
  set(folder zsh/site-functions)
endif()
file(INSTALL ${made}/completion.zsh DESTINATION ${CMAKE_INSTALL_PREFIX}/${share}/${folder}
     RENAME _vellumark-cli)]])
install(FILES docs/databases.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES samples/shop.sql DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)

if(VELLUMARK_DESKTOP)
  set(metainfo example.vellumark.vellumark.metainfo.xml)
  configure_file(${source}/${metainfo}.in ${made}/${metainfo} @ONLY)
  configure_file(${source}/vellumark.1.in ${made}/vellumark.1 @ONLY)
  add_compressed(${made}/vellumark.1)
  install(TARGETS vellumark RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES ${made}/vellumark.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES ${made}/${metainfo} DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES packaging/vellumark.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES packaging/vellumark.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()
install(DIRECTORY help/ DESTINATION ${CMAKE_INSTALL_DATADIR}/vellumark/help)

# What an installation holds beside the programs, and the Debian package (cpack -G DEB).

install(DIRECTORY ${PROJECT_SOURCE_DIR}/show/ DESTINATION ${CMAKE_INSTALL_DATADIR}/lumenfold/show)
install(FILES packaging/lumenfold.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/org.lumenfold.lumenfold.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES packaging/lumenfold.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES packaging/man/lumenfold.6 DESTINATION ${CMAKE_INSTALL_MANDIR}/man6)
install(FILES packaging/man/lumenfold-film.1 packaging/man/lumenfold-bench.1 packaging/man/lumenfold-forge.1
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
foreach(program lumenfold-film lumenfold-bench lumenfold-forge) # found by the program's name
  install(FILES packaging/bash-completion/lumenfold DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
          RENAME ${program})
endforeach()
install(FILES README.md LICENSE docs/CREDITS.md DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_PACKAGE_NAME lumenfold)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Real-time audiovisual demo, drawn in software")
set(CPACK_PACKAGE_VENDOR "The lumenfold authors")
set(CPACK_PACKAGE_CONTACT "The lumenfold authors <lumenfold@example.org>")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS ffmpeg)
set(CPACK_GENERATOR DEB)
include(CPack)

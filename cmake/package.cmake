# What an installation holds beside the programs, and the Debian package (cpack -G DEB).

install(DIRECTORY ${PROJECT_SOURCE_DIR}/show/ DESTINATION ${CMAKE_INSTALL_DATADIR}/lumenfold/show)
install(FILES packaging/lumenfold.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/org.lumenfold.lumenfold.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES packaging/lumenfold.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
# Man pages and changelog, compressed without name and time, so that the same source gives the same bytes.
set(packaged ${CMAKE_CURRENT_BINARY_DIR}/packaged)
configure_file(packaging/changelog.in ${packaged}/changelog)
file(GLOB pages CONFIGURE_DEPENDS packaging/man/*)
foreach(page ${pages} ${packaged}/changelog)
  get_filename_component(name ${page} NAME)
  set(compressed ${packaged}/${name}.gz)
  add_custom_command(OUTPUT ${compressed} COMMAND gzip -9nc ${page} > ${compressed} DEPENDS ${page} VERBATIM)
  list(APPEND compressed_files ${compressed})
  if(name MATCHES "\\.([0-9])$")
    install(FILES ${compressed} DESTINATION ${CMAKE_INSTALL_MANDIR}/man${CMAKE_MATCH_1})
  else()
    install(FILES ${compressed} DESTINATION ${CMAKE_INSTALL_DOCDIR})
  endif()
endforeach()
add_custom_target(compressed_documents ALL DEPENDS ${compressed_files})
foreach(program lumenfold-film lumenfold-bench lumenfold-forge) # found by the program's name
  install(FILES packaging/bash-completion/lumenfold DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
          RENAME ${program})
endforeach()
install(FILES README.md CHANGELOG.md docs/CREDITS.md packaging/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_PACKAGE_NAME lumenfold)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Real-time audiovisual demo, drawn in software")
set(CPACK_PACKAGE_VENDOR "The lumenfold authors")
set(CPACK_PACKAGE_CONTACT "The lumenfold authors <lumenfold@example.org>")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Ten parts and an end scroller, eight minutes, led by the sync commands of
their tune. A film tool writes the show as a film, as pictures or as sound.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
    WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS ffmpeg)
set(CPACK_GENERATOR DEB)
include(CPack)

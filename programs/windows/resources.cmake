# Icon, version and manifest of the programs; a window program has no console.

enable_language(RC)
string(REGEX MATCHALL "[0-9]+" numbers "${LUMENFOLD_VERSION}.0.0.0")
list(SUBLIST numbers 0 4 numbers)
list(JOIN numbers "," LUMENFOLD_VERSION_NUMBERS)
set(LUMENFOLD_ICON ${PROJECT_SOURCE_DIR}/build/windows/lumenfold.ico)
set(LUMENFOLD_MANIFEST ${PROJECT_SOURCE_DIR}/packaging/windows/lumenfold.manifest)
foreach(program lumenfold lumenfold-film)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/program.rc.in ${program}.rc @ONLY)
  target_sources(${program} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${program}.rc)
  target_link_options(${program} PRIVATE -s -Wl,--no-insert-timestamp)
endforeach()
set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/lumenfold.rc ${CMAKE_CURRENT_BINARY_DIR}/lumenfold-film.rc
                            PROPERTIES OBJECT_DEPENDS "${LUMENFOLD_ICON};${LUMENFOLD_MANIFEST}")
set_target_properties(lumenfold PROPERTIES WIN32_EXECUTABLE ON)

# LUMENFOLD_VERSION: from the last tag of the form v1.2.3, with the number of commits since and the last one's name; without
# git or tags the project's.
find_package(Git QUIET)
if(GIT_FOUND)
  execute_process(COMMAND ${GIT_EXECUTABLE} -C ${PROJECT_SOURCE_DIR} describe --tags --match "v[0-9]*"
                  OUTPUT_VARIABLE described OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
endif()
string(REGEX REPLACE "^v" "" LUMENFOLD_VERSION "${described}")
if(NOT LUMENFOLD_VERSION)
  set(LUMENFOLD_VERSION ${PROJECT_VERSION})
endif()

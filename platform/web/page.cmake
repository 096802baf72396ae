# The page: emscripten's toolchain (preset web), libopenmpt from its sources, the files of show/ in one package. build/web
# holds what a server has to offer.

include(${PROJECT_SOURCE_DIR}/cmake/openmpt.cmake)

set(program_options -sALLOW_MEMORY_GROWTH=1 -sINITIAL_MEMORY=134217728 -sMODULARIZE=1 -sEXIT_RUNTIME=1
                    --preload-file ${PROJECT_SOURCE_DIR}/show@/show)

# Waiting for the next turn unwinds the stack down to the page.
lumenfold_platform(web LIBRARIES openmpt)
add_executable(lumenfold $<TARGET_OBJECTS:lumenfold_web>)
target_link_libraries(lumenfold PRIVATE lumenfold_driver openmpt)
target_link_options(lumenfold PRIVATE ${program_options} -sASYNCIFY=1 -sASYNCIFY_STACK_SIZE=65536
                    -sEXPORT_NAME=createLumenfold -sENVIRONMENT=web)
set_target_properties(lumenfold PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_SOURCE_DIR}/build/web)

# For the tests: the film tool's hashes, without pictures, sound and films.
lumenfold_platform(offline LIBRARIES openmpt)
set(programs ${PROJECT_SOURCE_DIR}/programs)
add_executable(lumenfold-hash ${PROJECT_SOURCE_DIR}/tests/web/hash.cpp $<TARGET_OBJECTS:lumenfold_offline>
               ${programs}/command_line.cpp ${programs}/film.cpp ${programs}/film_hash.cpp ${programs}/film_options.cpp
               ${programs}/film_plan.cpp ${programs}/film_show.cpp ${programs}/progress.cpp ${programs}/posix/system.cpp)
target_compile_definitions(lumenfold-hash PRIVATE LUMENFOLD_VERSION="${LUMENFOLD_VERSION}")
target_link_libraries(lumenfold-hash PRIVATE lumenfold_driver openmpt)
target_link_options(lumenfold-hash PRIVATE ${program_options} -sEXPORT_NAME=createHash -sENVIRONMENT=node,web)

# Target openmpt from the sources of libopenmpt, for systems that have no package of it.

set(LUMENFOLD_OPENMPT "" CACHE PATH "Sources of libopenmpt")
file(GLOB_RECURSE openmpt_sources ${LUMENFOLD_OPENMPT}/src/*.cpp ${LUMENFOLD_OPENMPT}/common/*.cpp
     ${LUMENFOLD_OPENMPT}/soundlib/*.cpp ${LUMENFOLD_OPENMPT}/sounddsp/*.cpp)
file(GLOB openmpt_interface ${LUMENFOLD_OPENMPT}/libopenmpt/libopenmpt_c*.cpp
     ${LUMENFOLD_OPENMPT}/libopenmpt/libopenmpt_*impl.cpp)
add_library(openmpt STATIC ${openmpt_sources} ${openmpt_interface})
target_include_directories(openmpt SYSTEM PRIVATE ${LUMENFOLD_OPENMPT}/build/svn_version ${LUMENFOLD_OPENMPT}/src
                                   ${LUMENFOLD_OPENMPT}/common PUBLIC ${LUMENFOLD_OPENMPT})
target_compile_definitions(openmpt PRIVATE LIBOPENMPT_BUILD)
target_compile_options(openmpt PRIVATE -std=c++17 -w)
if(WIN32) # most of the time goes into reading these
  target_precompile_headers(openmpt PRIVATE ${LUMENFOLD_OPENMPT}/common/stdafx.h ${LUMENFOLD_OPENMPT}/soundlib/Loaders.h)
endif()

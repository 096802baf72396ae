# Compile flags that every target shares, and the two kinds of target that the layers are made of.

add_library(lumenfold_flags INTERFACE)
target_compile_options(lumenfold_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow $<$<BOOL:${LUMENFOLD_WERROR}>:-Werror>
                       # the same bits from every compiler and on every processor
                       -ffp-contract=off)
target_include_directories(lumenfold_flags INTERFACE ${PROJECT_SOURCE_DIR})
if(LUMENFOLD_SANITIZE)
  target_compile_options(lumenfold_flags INTERFACE -fsanitize=${LUMENFOLD_SANITIZE} -fno-omit-frame-pointer
                         -fno-sanitize-recover=all)
  target_link_options(lumenfold_flags INTERFACE -fsanitize=${LUMENFOLD_SANITIZE})
endif()

# Files named *_avx2.cpp hold the vectorised kernels; only they may use the wider instructions, and they are
# entered only after a check at run time.
function(lumenfold_vector_flags)
  foreach(source ${ARGN})
    if(source MATCHES "_avx2\\.cpp$" AND CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
      set_source_files_properties(${source} PROPERTIES COMPILE_OPTIONS "-mavx2")
    endif()
  endforeach()
endfunction()

# lumenfold_layer(NAME [DIR folder] [DEPENDS layer...]): one static library from all sources of one folder.
function(lumenfold_layer name)
  cmake_parse_arguments(arg "" "DIR" "DEPENDS" ${ARGN})
  if(NOT arg_DIR)
    set(arg_DIR ${name})
  endif()
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${arg_DIR}/*.cpp)
  if(sources)
    lumenfold_vector_flags(${sources})
    add_library(lumenfold_${name} STATIC ${sources})
    set(scope PUBLIC)
  else()
    add_library(lumenfold_${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_link_libraries(lumenfold_${name} ${scope} lumenfold_flags)
  foreach(dependency ${arg_DEPENDS})
    target_link_libraries(lumenfold_${name} ${scope} lumenfold_${dependency})
  endforeach()
endfunction()

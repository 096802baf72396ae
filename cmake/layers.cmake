# Compile flags that every target shares, and the two kinds of target that the layers are made of.

add_library(lumenfold_flags INTERFACE)
target_compile_options(lumenfold_flags INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:-Wall;-Wextra;-Wpedantic;-Wshadow;$<$<BOOL:${LUMENFOLD_WERROR}>:-Werror>>"
                       # the same bits from every compiler and on every processor
                       $<$<COMPILE_LANGUAGE:CXX>:-ffp-contract=off>
                       # and the same programs in every folder
                       $<$<COMPILE_LANGUAGE:CXX>:-fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=>)
if(WIN32) # the stack is aligned to 16 bytes only, but this compiler stores vectors of 32 bytes there as aligned
  target_compile_options(lumenfold_flags INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Wa,-muse-unaligned-vector-move>)
endif()
target_include_directories(lumenfold_flags INTERFACE ${PROJECT_SOURCE_DIR})
if(LUMENFOLD_SANITIZE)
  target_compile_options(lumenfold_flags INTERFACE -fsanitize=${LUMENFOLD_SANITIZE} -fno-omit-frame-pointer
                         -fno-sanitize-recover=all)
  target_link_options(lumenfold_flags INTERFACE -fsanitize=${LUMENFOLD_SANITIZE})
endif()

# The targets that the vectorised loops are compiled for, besides one without vector instructions (EMU128): SSE4, AVX2
# and AVX3 (AVX-512), NEON, or the browser's. What lies between them brings nothing.
find_path(LUMENFOLD_HIGHWAY hwy/highway.h REQUIRED) # headers only
target_include_directories(lumenfold_flags SYSTEM INTERFACE ${LUMENFOLD_HIGHWAY})
target_compile_definitions(
  lumenfold_flags
  INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:HWY_DISABLED_TARGETS=(HWY_SSSE3|HWY_AVX3_DL|HWY_SVE|HWY_SVE2|HWY_SVE_256|HWY_SVE2_128)>"
            $<$<COMPILE_LANGUAGE:CXX>:HWY_DISABLE_F16C> $<$<COMPILE_LANGUAGE:CXX>:HWY_DISABLE_PCLMUL_AES>
            $<$<COMPILE_LANGUAGE:CXX>:HWY_BROKEN_EMU128=0>) # older compilers are said to break it; the tests would show that

# lumenfold_layer(NAME [DIR folder] [DEPENDS layer...]): one static library from all sources of one folder.
function(lumenfold_layer name)
  cmake_parse_arguments(arg "" "DIR" "DEPENDS" ${ARGN})
  if(NOT arg_DIR)
    set(arg_DIR ${name})
  endif()
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${arg_DIR}/*.cpp)
  if(sources)
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

# SPDX-License-Identifier: GPL-3.0-or-later
# A folder under src/ is a layer: a static library of its own that links only what is below it.
#
#   korvel_layer(NAME SOURCES file... [USES layer...] [LIBRARIES target...])
#
# USES names the layers below that its headers and sources need; they reach whoever links it.
# LIBRARIES are third-party ones, which stay private to the layer.
function(korvel_layer name)
  cmake_parse_arguments(PARSE_ARGV 1 layer "" "" "SOURCES;USES;LIBRARIES")
  add_library(korvel-${name} STATIC ${layer_SOURCES})
  set_property(GLOBAL APPEND PROPERTY KORVEL_LAYERS ${name})
  target_include_directories(korvel-${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
  list(TRANSFORM layer_USES PREPEND korvel-)
  target_link_libraries(korvel-${name} PUBLIC ${layer_USES} PRIVATE ${layer_LIBRARIES})
  korvel_precompile(korvel-${name} ${layer_USES})
  if(KORVEL_FUZZERS)
    korvel_spare_coroutines(${layer_SOURCES})
  endif()
  korvel_compile_together(korvel-${name} 16)
endfunction()

# Clang 14 cannot assemble some coroutines with the counters of fuzzing ("Cannot represent a
# difference across sections"): the counters of their parts lie in other sections than those of the
# whole. So sources with coroutines have no counters, and share no precompiled headers with sources
# that have. Nothing that reads foreign bytes is a coroutine, so that fuzzing sees as much as before.
function(korvel_spare_coroutines)
  foreach(source IN LISTS ARGN)
    file(STRINGS ${source} words REGEX "co_(yield|return|await)" LIMIT_COUNT 1)
    if(words)
      set_source_files_properties(${source} PROPERTIES SKIP_PRECOMPILE_HEADERS ON
                                  COMPILE_OPTIONS -fno-sanitize=fuzzer-no-link)
    endif()
  endforeach()
endfunction()

option(KORVEL_UNITY "Compile the sources of a layer many at a time, which builds it sooner" OFF)

# Compiles so many sources of a target at a time, if that is asked for.
function(korvel_compile_together target count)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ${KORVEL_UNITY}
                                             UNITY_BUILD_BATCH_SIZE ${count})
  if(KORVEL_UNITY AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Classes of a source file whose fields are of its unnamed namespace are as private as before.
    target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
  endif()
endfunction()

# Whatever most sources include is read once: the standard library, and what every entity is made
# of where there are entities. The layers above the model share the model's; precise has options of
# its own.
function(korvel_precompile target)
  set(headers "${PROJECT_SOURCE_DIR}/cmake/KorvelPrecompiled.h")
  if("korvel-model" IN_LIST ARGN)
    target_precompile_headers(${target} REUSE_FROM korvel-model)
    return()
  elseif(target STREQUAL "korvel-model")
    list(APPEND headers "${PROJECT_SOURCE_DIR}/src/platform/persistence/ManagedObject.h")
  endif()
  target_precompile_headers(${target} PRIVATE ${headers})
endfunction()

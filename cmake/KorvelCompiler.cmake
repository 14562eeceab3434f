# SPDX-License-Identifier: GPL-3.0-or-later
# Language level, warnings and sanitizers, the same for every target.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

# Detection thresholds are exact: no fused operations, whatever machine the build is for.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
                    -Wnon-virtual-dtor -Wold-style-cast -ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_BUILD_TYPE STREQUAL "Release")
  # g++ 12 sees overlaps and unset members in the optimised code of the standard library's strings
  # and optionals, where there are none.
  add_compile_options(-Wno-restrict -Wno-maybe-uninitialized)
endif()
if(KORVEL_WARNINGS_AS_ERRORS)
  add_compile_options(-Werror)
endif()

set(KORVEL_SANITIZE "" CACHE STRING "Sanitizers to build with, such as address,undefined")
if(KORVEL_SANITIZE)
  add_compile_options(-fsanitize=${KORVEL_SANITIZE} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${KORVEL_SANITIZE})
endif()

# Warnings as errors, and ccache where the machine has it.
add_library(tol_warnings INTERFACE)
target_compile_options(tol_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # This compiler sees overlapping copies in std::string's operator+ where there are none, and, optimising,
  # endless ones when a string is assigned.
  target_compile_options(tol_warnings INTERFACE
    -Wno-restrict $<$<CONFIG:Release>:-Wno-stringop-overflow> $<$<CONFIG:Release>:-Wno-array-bounds>)
endif()

find_program(TOL_CCACHE ccache)
if(TOL_CCACHE)
  # Paths below the source folder count as relative, so that every checkout shares the cache.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${TOL_CCACHE})
endif()

# A layer is a static library whose headers are included as "<layer>/<Header>.h". Its include path
# holds links to its own headers and nothing else, so that a target sees a layer's headers only when
# it links that layer: an include that points upward does not compile.

# tol_layer(<folder below src> SOURCES <files...> [ROOMS <folders...>] [LINKS <public libraries...>])
# Makes the target tol_<folder, slashes as underscores>. Rooms are folders of a large layer, which know each other.
function(tol_layer folder)
  cmake_parse_arguments(ARG "" "" "SOURCES;ROOMS;LINKS" ${ARGN})
  string(REPLACE "/" "_" name ${folder})
  set(target tol_${name})
  add_library(${target} STATIC ${ARG_SOURCES})
  tol_include_root(${target} ${folder} ${CMAKE_CURRENT_SOURCE_DIR} ${ARG_ROOMS})
  target_link_libraries(${target} PUBLIC ${ARG_LINKS} PRIVATE tol_warnings)
endfunction()

# Gives the target an include path in which <folder> holds links to the headers of <source> and of its rooms.
function(tol_include_root target folder source)
  set(root ${CMAKE_BINARY_DIR}/include/${target})
  file(REMOVE_RECURSE ${root})
  file(MAKE_DIRECTORY ${root}/${folder})
  file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${source} ${source}/*.h)
  foreach(room ${ARGN})
    file(MAKE_DIRECTORY ${root}/${folder}/${room})
    file(GLOB inside CONFIGURE_DEPENDS RELATIVE ${source} ${source}/${room}/*.h)
    list(APPEND headers ${inside})
  endforeach()
  foreach(header ${headers})
    file(CREATE_LINK ${source}/${header} ${root}/${folder}/${header} SYMBOLIC COPY_ON_ERROR)
  endforeach()
  target_include_directories(${target} PUBLIC ${root})
endfunction()

# tol_test(<name> LABEL unit|gui|e2e SOURCES <files...> LINKS <libraries...> [MAIN <library with main()>]
#          [ENVIRONMENT <name=value>] [IN_MEMORY])
# IN_MEMORY is for tests that make many small databases: they do so in memory, where the system has such
# a folder. Tests with the label gui run once more on a screen of 200 %, all of a program in one process.
function(tol_test name)
  cmake_parse_arguments(ARG "IN_MEMORY" "LABEL;MAIN;ENVIRONMENT" "SOURCES;LINKS" ${ARGN})
  set(properties LABELS "${ARG_LABEL}" TIMEOUT 600)
  if(ARG_ENVIRONMENT)
    list(APPEND properties ENVIRONMENT "${ARG_ENVIRONMENT}")
  endif()
  if(ARG_IN_MEMORY AND IS_DIRECTORY /dev/shm)
    list(APPEND properties ENVIRONMENT_MODIFICATION TMPDIR=set:/dev/shm)
  endif()
  if(NOT ARG_MAIN)
    set(ARG_MAIN GTest::gtest_main)
  endif()
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} tol_test_support tol_warnings GTest::gmock ${ARG_MAIN})
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES ${properties})
  if(ARG_LABEL STREQUAL "gui")
    add_test(NAME ${name}.AtScale2 COMMAND ${name})
    set_tests_properties(${name}.AtScale2 PROPERTIES ${properties} ENVIRONMENT
      "QT_SCALE_FACTOR=2;QT_QPA_PLATFORM=offscreen:configfile=${PROJECT_SOURCE_DIR}/tests/support/large-screen.json")
  endif()
endfunction()

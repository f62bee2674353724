# What was compiled before is not compiled again, where ccache is there.
find_program(GUI_CCACHE ccache)
if(GUI_CCACHE AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${GUI_CCACHE})
endif()

# What every target of the project is compiled with.
add_library(project_options INTERFACE)

if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(
    project_options
    INTERFACE -Wall
              -Wextra
              -Wpedantic
              -Werror
              -Wshadow
              -Wconversion
              -Wsign-conversion
              -Wnon-virtual-dtor
              -Woverloaded-virtual
              -Wold-style-cast
              -Wcast-qual
              -Wformat=2
              -Wundef)
endif()

if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Of classes that have members of types which are local to their file. A batch is not the file that it is taken for.
  target_compile_options(project_options INTERFACE -Wno-subobject-linkage)
endif()

option(GUI_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
if(GUI_SANITIZE)
  target_compile_definitions(project_options INTERFACE _GLIBCXX_ASSERTIONS)
  target_compile_options(project_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                   -fno-omit-frame-pointer)
  target_link_options(project_options INTERFACE -fsanitize=address,undefined)
endif()

# Lets the fuzz programs see which code of the target an input reaches, and makes it fast enough for them.
function(gui_watch_coverage target)
  if(GUI_BUILD_FUZZERS)
    target_compile_options(${target} PRIVATE -O2 -fsanitize-coverage=inline-8bit-counters,pc-table)
  endif()
endfunction()

# Takes the files of other platforms off a list: *_windows.*, *_windows_test.* and the like.
function(gui_keep_own_platform list)
  set(other windows)
  if(WIN32)
    set(other posix)
  endif()
  list(FILTER ${list} EXCLUDE REGEX "_${other}(_test)?\\.(cpp|h)$")
  set(${list} "${${list}}" PARENT_SCOPE)
endfunction()

# For Windows: the macros of its headers would reach the other sources of a batch.
function(gui_keep_system_headers_apart)
  if(NOT WIN32)
    return()
  endif()
  foreach(source ${ARGN})
    file(STRINGS ${source} system REGEX "include (\"engine/platform\\.h\"|<(windows|io)\\.h>)")
    if(system)
      set_source_files_properties(${source} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    endif()
  endforeach()
endfunction()

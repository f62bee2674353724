# gui_add_test(NAME SOURCES FILE... [LIBRARIES TARGET...] [REPLACES_SYSTEM_CALLS])
# One test program on GoogleTest; each of its tests is a test of ctest and runs in the root of the source tree.
# REPLACES_SYSTEM_CALLS: it has an allocator or file calls of its own, as the sanitizers have: with them it is only built.
# Such tests belong to the target and the label `optimised`: those that ./check runs in the optimised build, too or alone.
# Where an emulator runs the programs, each is one test of ctest, since starting one takes long; reports of what was in
# them are written to `reports` in the build tree.
if(WIN32 AND CMAKE_CROSSCOMPILING)
  include(${CMAKE_CURRENT_LIST_DIR}/GTestSources.cmake)
else()
  find_package(GTest REQUIRED)
  include(GoogleTest)
endif()

add_custom_target(optimised)

function(gui_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "REPLACES_SYSTEM_CALLS" "" "SOURCES;LIBRARIES")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "gui_add_test(${name}): unexpected ${arg_UNPARSED_ARGUMENTS}")
  endif()
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} engine base project_options GTest::gmock GTest::gtest_main)
  # Compiles a quarter faster than with -O3; the libraries that are tested are optimised as users have them.
  target_compile_options(${name} PRIVATE $<$<CONFIG:Release>:-O1>)
  set(label)
  if(arg_REPLACES_SYSTEM_CALLS)
    if(GUI_SANITIZE)
      return()
    endif()
    add_dependencies(optimised ${name})
    set(label LABELS optimised)
  endif()
  if(CMAKE_CROSSCOMPILING)
    # Relative, since the system that runs them has other roots.
    file(RELATIVE_PATH reports ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/reports)
    add_test(
      NAME ${name}
      COMMAND ${name} --gtest_brief=1 --gtest_output=xml:${reports}/
      WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
    set_tests_properties(${name} PROPERTIES TIMEOUT 120)
    return()
  endif()
  gtest_discover_tests(
    ${name}
    TEST_PREFIX "${name}."
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    DISCOVERY_MODE PRE_TEST
    DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 300 ${label})
endfunction()

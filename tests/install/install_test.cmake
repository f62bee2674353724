# BUILD, CONFIG: the build tree and its configuration; GENERATOR, COMPILER, FLAGS: what the outside host is built with;
# FOLDER: where to work; CHECK_SOURCE: a tool built with the installed library that checks definitions; HOST_SOURCE, PROGRAMS (empty without guihost), SAMPLES: folders under the prefix.
set(first_prefix ${FOLDER}/first)
set(prefix "${FOLDER}/moved to/another place")
set(host_build ${FOLDER}/host)
set(config)
if(CONFIG)
  set(config --config ${CONFIG})
endif()

# run(COMMAND...): ends the test unless the command succeeds; `output` is what it wrote.
function(run)
  execute_process(
    COMMAND ${ARGV}
    WORKING_DIRECTORY ${FOLDER}
    RESULT_VARIABLE result
    OUTPUT_VARIABLE output
    ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    list(JOIN ARGV " " command)
    message(FATAL_ERROR "${command}\nended with ${result}:\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY "${FOLDER}/moved to")
run(${CMAKE_COMMAND} --install ${BUILD} ${config} --prefix ${first_prefix})
file(RENAME ${first_prefix} ${prefix})

run(${CMAKE_COMMAND} -S "${prefix}/${HOST_SOURCE}" -B ${host_build} -G ${GENERATOR} "-DCMAKE_PREFIX_PATH=${prefix}"
    -DCMAKE_BUILD_TYPE=${CONFIG} -DCMAKE_CXX_COMPILER=${COMPILER} "-DCMAKE_CXX_FLAGS=${FLAGS}")
run(${CMAKE_COMMAND} --build ${host_build} ${config})
run(${host_build}/outside_host)
if(NOT output STREQUAL "play:level1\n")
  message(FATAL_ERROR "the outside host printed:\n${output}")
endif()

if(PROGRAMS)
  run(${CMAKE_COMMAND} -S ${CHECK_SOURCE} -B ${FOLDER}/check -G ${GENERATOR} "-DCMAKE_PREFIX_PATH=${prefix}"
      -DCMAKE_BUILD_TYPE=${CONFIG} -DCMAKE_CXX_COMPILER=${COMPILER} "-DCMAKE_CXX_FLAGS=${FLAGS}")
  run(${CMAKE_COMMAND} --build ${FOLDER}/check ${config})
  run(${FOLDER}/check/outside_check)
  if(NOT output STREQUAL "gui.txt:1:6: error: menu.txt cannot be read [missing-file]\n")
    message(FATAL_ERROR "the outside tool printed:\n${output}")
  endif()

  set(guihost "${prefix}/${PROGRAMS}/guihost")
  # The libraries of the build tree are still there; the installed program must not fall back on them.
  file(
    GET_RUNTIME_DEPENDENCIES
    EXECUTABLES ${guihost}
    RESOLVED_DEPENDENCIES_VAR found
    PRE_INCLUDE_REGEXES "^(lib)?base\\."
    PRE_EXCLUDE_REGEXES .)
  cmake_path(IS_PREFIX prefix "${found}" NORMALIZE own)
  if(NOT own)
    message(FATAL_ERROR "guihost loads '${found}', not the library under ${prefix}")
  endif()
  run(${guihost} --version)
  set(picture ${FOLDER}/sample.png)
  run(${guihost} --offscreen --shot ${picture} "${prefix}/${SAMPLES}/skylantern/gui.txt")
  file(SIZE ${picture} bytes)
  if(bytes EQUAL 0)
    message(FATAL_ERROR "guihost drew an empty picture")
  endif()
endif()

# OBJDUMP; MODULE, BASE: the DLLs.

# read(DLL): `exports` and `imports` are the names of what it exports and of the DLLs that it imports.
function(read dll)
  execute_process(COMMAND ${OBJDUMP} -p ${dll} OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL "DLL Name: [^\n]+" imports "${text}")
  list(TRANSFORM imports REPLACE "DLL Name: " "")
  list(TRANSFORM imports TOLOWER)
  string(REGEX REPLACE ".*\\[Ordinal/Name Pointer\\] Table" "" text "${text}")
  string(REGEX MATCHALL "\n\t\\[ *[0-9]+\\] [^\n]+" exports "${text}")
  list(TRANSFORM exports REPLACE "\n\t\\[ *[0-9]+\\] " "")
  set(exports "${exports}" PARENT_SCOPE)
  set(imports "${imports}" PARENT_SCOPE)
endfunction()

function(expect what found wanted)
  if(NOT found STREQUAL wanted)
    message(FATAL_ERROR "${what} are\n  ${found}\nand not\n  ${wanted}")
  endif()
endfunction()

read(${MODULE})
expect("exports of the module" "${exports}" "ActivateDll;DeactivateDll;QueryDescriptionString;QueryInterfaceType")
set(system kernel32.dll msvcrt.dll user32.dll winmm.dll)
list(REMOVE_ITEM imports ${system})
expect("libraries of the module beside the system's" "${imports}" "base.dll")

read(${BASE})
list(REMOVE_ITEM imports ${system})
expect("libraries of base beside the system's" "${imports}" "")
list(LENGTH exports count)
if(count LESS 50)
  message(FATAL_ERROR "base exports ${count} names only")
endif()

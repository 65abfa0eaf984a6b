# What the command-line tests share: a fresh demo league made by kestrin-cli.
function(make_demo dir)
  file(REMOVE_RECURSE "${dir}")
  execute_process(COMMAND ${CLI} demo "${dir}" ${ARGN} RESULT_VARIABLE rc OUTPUT_QUIET ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "demo failed (${rc}): ${err}")
  endif()
endfunction()

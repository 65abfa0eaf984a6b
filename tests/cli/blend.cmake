# blend on a demo league: without the Stats database it says so on stderr and
# prints nothing; after a refresh every fixture of a club gets a blend text,
# and a fixture the club doesn't have is refused.
set(dir "${WORK}/cli-blend")
include(${CMAKE_CURRENT_LIST_DIR}/common.cmake)
make_demo("${dir}" --clubs 2 --export-clubs 10)

execute_process(COMMAND ${CLI} --game-dir "${dir}" session OUTPUT_VARIABLE out)
string(JSON club GET "${out}" Clubs 0 Name)
string(JSON fixtures LENGTH "${out}" Clubs 0 Fixtures)

execute_process(COMMAND ${CLI} --game-dir "${dir}" blend "${club}" RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 1 OR NOT out STREQUAL "" OR NOT err MATCHES "You need the Stats database to be able to use this option")
  message(FATAL_ERROR "expected the missing database on stderr, got ${rc}: ${out} ${err}")
endif()

execute_process(COMMAND ${CLI} --game-dir "${dir}" refresh-stats RESULT_VARIABLE rc ERROR_VARIABLE err OUTPUT_QUIET)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "refresh-stats failed (${rc}): ${err}")
endif()
foreach(n RANGE 1 ${fixtures})
  execute_process(COMMAND ${CLI} --game-dir "${dir}" blend "${club}" ${n} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  string(JSON text GET "${out}" TxtBlend)
  if(NOT rc EQUAL 0 OR NOT text MATCHES "^([0-9]+|\\?) - ([0-9]+|\\?) - ([0-9]+|\\?)$" OR NOT err STREQUAL "")
    message(FATAL_ERROR "blend of fixture ${n} (${rc}): ${out} ${err}")
  endif()
endforeach()

math(EXPR beyond "${fixtures} + 1")
execute_process(COMMAND ${CLI} --game-dir "${dir}" blend "${club}" ${beyond} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 1 OR NOT out STREQUAL "" OR NOT err MATCHES "fixtures")
  message(FATAL_ERROR "expected fixture ${beyond} refused, got ${rc}: ${out} ${err}")
endif()

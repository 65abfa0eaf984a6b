# autoturn on a demo league: By Best Blend is refused without the Stats
# database; a run for one club with a fixed formation rewrites that club's
# Turnsheet alone, with the formation in every fixture; a formation the
# fixture screen doesn't offer is a usage error.
set(dir "${WORK}/cli-autoturn")
include(${CMAKE_CURRENT_LIST_DIR}/common.cmake)
make_demo("${dir}" --clubs 2 --export-clubs 10)

execute_process(COMMAND ${CLI} --game-dir "${dir}" session OUTPUT_VARIABLE out)
string(JSON first GET "${out}" Clubs 0 ClubFile)
string(JSON club GET "${out}" Clubs 1 Name)
string(JSON code GET "${out}" Clubs 1 ClubFile)
file(READ "${dir}/Turnsheet/${first}.txt" firstBefore)
file(READ "${dir}/Turnsheet/${code}.txt" secondBefore)

execute_process(COMMAND ${CLI} --game-dir "${dir}" autoturn --pick blend RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 1 OR NOT out STREQUAL "" OR NOT err MATCHES "You need the Stats database to be able to use this option")
  message(FATAL_ERROR "expected the missing database on stderr, got ${rc}: ${out} ${err}")
endif()

execute_process(COMMAND ${CLI} --game-dir "${dir}" autoturn --formation 6-6-6 RESULT_VARIABLE rc OUTPUT_QUIET ERROR_VARIABLE err)
if(NOT rc EQUAL 2 OR NOT err MATCHES "--formation takes auto or one of the eleven formations")
  message(FATAL_ERROR "expected a usage error for 6-6-6, got ${rc}: ${err}")
endif()

execute_process(COMMAND ${CLI} --game-dir "${dir}" autoturn --club "${club}" --formation 3-5-2 --pick core
                RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "autoturn failed (${rc}): ${err}")
endif()
string(JSON runs LENGTH "${out}" Clubs)
string(JSON name GET "${out}" Clubs 0 Name)
string(JSON messages TYPE "${out}" Clubs 0 Messages)
if(NOT runs EQUAL 1 OR NOT name STREQUAL "${club}" OR NOT messages STREQUAL "ARRAY")
  message(FATAL_ERROR "expected one run for ${club}: ${out}")
endif()
file(READ "${dir}/Turnsheet/${first}.txt" firstAfter)
file(READ "${dir}/Turnsheet/${code}.txt" secondAfter)
if(NOT firstAfter STREQUAL firstBefore OR secondAfter STREQUAL secondBefore)
  message(FATAL_ERROR "only ${club}'s Turnsheet should have changed")
endif()

execute_process(COMMAND ${CLI} --game-dir "${dir}" session OUTPUT_VARIABLE out)
string(JSON fixtures LENGTH "${out}" Clubs 1 Fixtures)
math(EXPR last "${fixtures} - 1")
foreach(f RANGE 0 ${last})
  string(JSON d GET "${out}" Clubs 1 Fixtures ${f} Defence)
  string(JSON m GET "${out}" Clubs 1 Fixtures ${f} Midfield)
  string(JSON a GET "${out}" Clubs 1 Fixtures ${f} Attack)
  string(JSON tactics GET "${out}" Clubs 1 Fixtures ${f} Tactics)
  if(NOT "${d}-${m}-${a}" STREQUAL "3-5-2" OR NOT tactics EQUAL 12)
    message(FATAL_ERROR "fixture ${f} reads back ${d}-${m}-${a}, tactics ${tactics}")
  endif()
endforeach()

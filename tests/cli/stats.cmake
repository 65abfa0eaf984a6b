# refresh-stats and honours on a demo league with a league table of our own:
# a second refresh adds no table rows, an apostrophe in a club's name is just
# a name, and a database of another program fails with nothing on stdout.
set(dir "${WORK}/cli-stats")
include(${CMAKE_CURRENT_LIST_DIR}/common.cmake)
make_demo("${dir}" --clubs 2 --export-clubs 10)
file(GLOB weekly "${dir}/Weekly" "${dir}/weekly")
file(WRITE "${weekly}/CODES.TXT" "Kestrel Rovers - KEST\r\nKing's Lynn Town - KING\r\n")
file(WRITE "${weekly}/ENGTABS.TXT"
  "Pos  Club                  PYD   MGD   GD   PTS\r\n"
  "   1 King's Lynn Town      38    10    12   81\r\n"
  "   2 Kestrel Rovers        38     4     3   70\r\n")

foreach(round 1 2)
  execute_process(COMMAND ${CLI} --game-dir "${dir}" refresh-stats RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "refresh-stats failed (${rc}): ${err}")
  endif()
  string(JSON clubs GET "${out}" Added Clubs)
  string(JSON tables GET "${out}" Added Tables)
  string(JSON file GET "${out}" StatsFile)
  if(round EQUAL 1)
    set(want 2)
  else()
    set(want 0)
  endif()
  if(NOT clubs EQUAL 3 OR NOT tables EQUAL want OR NOT EXISTS "${file}")
    message(FATAL_ERROR "refresh ${round}: ${out}")
  endif()
endforeach()

execute_process(COMMAND ${CLI} --game-dir "${dir}" honours "Kestrel Rovers" RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
string(JSON title GET "${out}" Title)
string(JSON champions GET "${out}" Rows 0 4)
string(JSON finish GET "${out}" Rows 0 2)
if(NOT rc EQUAL 0 OR NOT title STREQUAL "Club history of Kestrel Rovers" OR NOT champions STREQUAL "King's Lynn Town"
   OR NOT finish STREQUAL "2")
  message(FATAL_ERROR "honours (${rc}): ${out} ${err}")
endif()

file(WRITE "${file}" "not a database")
execute_process(COMMAND ${CLI} --game-dir "${dir}" refresh-stats RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 1 OR NOT out STREQUAL "" OR NOT err MATCHES "is not a Stats database")
  message(FATAL_ERROR "expected a refusal on stderr and exit 1, got ${rc}: ${out} ${err}")
endif()
file(READ "${file}" left)
if(NOT left STREQUAL "not a database")
  message(FATAL_ERROR "the refused file was changed")
endif()

# kestrin-cli search over a demo league's club export: a band keeps only the
# players inside it, a name ignores the bands and any case, "Within my bank
# balance" follows the club asked for, and a box item that is not offered is
# refused with a message and nothing on stdout.
cmake_policy(VERSION 3.20)
set(dir "${WORK}/cli-search")
include(${CMAKE_CURRENT_LIST_DIR}/common.cmake)
make_demo("${dir}" --clubs 3 --export-clubs 20)

# Runs a search; every row's cell `column` must pass `test` (a CMake
# condition on ${cell}); `rows` gets the number of rows.
function(search rows column test)
  execute_process(COMMAND ${CLI} --game-dir "${dir}" search ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE json
                  ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "search ${ARGN} failed (${rc}): ${err}")
  endif()
  string(JSON n LENGTH "${json}" Rows)
  string(JSON width LENGTH "${json}" Rows 0)
  if(NOT width EQUAL 13)
    message(FATAL_ERROR "a row should have the 13 shown columns: ${json}")
  endif()
  math(EXPR last "${n} - 1")
  foreach(i RANGE ${last})
    string(JSON cell GET "${json}" Rows ${i} ${column})
    string(STRIP "${cell}" cell)
    string(TOLOWER "${cell}" lowered)
    cmake_language(EVAL CODE "if(NOT (${test}))\n message(FATAL_ERROR \"search ${ARGN}: row ${i} has '${cell}'\")\nendif()")
  endforeach()
  set(${rows} ${n} PARENT_SCOPE)
endfunction()

search(all 0 "TRUE" --sign Any)
search(defenders 2 "cell MATCHES \"^DEF\"" --pos "Any Defender" --sign Any)
if(defenders LESS 2 OR NOT defenders LESS all)
  message(FATAL_ERROR "Any Defender gave ${defenders} of ${all} rows")
endif()

# A name, in lower case, with bands that hide everyone of the demo league.
search(named 1 "lowered MATCHES \"son\"" --name SON --value "8 million and above" --managed No)
if(named LESS 2)
  message(FATAL_ERROR "--name SON found ${named} rows")
endif()

execute_process(COMMAND ${CLI} --game-dir "${dir}" session OUTPUT_VARIABLE session ERROR_QUIET)
string(JSON third GET "${session}" Clubs 2 ClubFile)
string(JSON balance1 GET "${session}" Clubs 0 Balance)
string(JSON balance3 GET "${session}" Clubs 2 Balance)
search(rich 3 "NOT cell GREATER ${balance1}" --value "Within my bank balance" --sign Any)
search(poor 3 "NOT cell GREATER ${balance3}" --value "Within my bank balance" --sign Any --club ${third})
if(rich EQUAL poor)
  message(FATAL_ERROR "the bank balance band should follow the club: ${rich} rows for both")
endif()

search(none 0 "cell STREQUAL \"No Results\"" --name "no such player at all")

execute_process(COMMAND ${CLI} --game-dir "${dir}" search --age "Very old" RESULT_VARIABLE rc OUTPUT_VARIABLE out
                ERROR_VARIABLE err)
if(rc EQUAL 0 OR NOT out STREQUAL "" OR NOT err MATCHES "Age \"Very old\" is not one of its choices")
  message(FATAL_ERROR "an unknown item should be refused: ${rc} '${out}' '${err}'")
endif()
execute_process(COMMAND ${CLI} --game-dir "${dir}" search --club "No Such Club" RESULT_VARIABLE rc OUTPUT_VARIABLE out
                ERROR_QUIET)
if(NOT rc EQUAL 1 OR NOT out STREQUAL "")
  message(FATAL_ERROR "an unknown club should print nothing and exit 1: ${rc} '${out}'")
endif()
file(REMOVE_RECURSE "${dir}")

# kestrin-cli send-turnsheets --dry-run: one message a Turnsheet, to the
# administrator, under the subject the Turnsheet's league and club give it;
# nothing is sent. admin-text with no order placed: the heading alone.
set(dir "${WORK}/cli-mail")
include(${CMAKE_CURRENT_LIST_DIR}/common.cmake)
make_demo("${dir}" --clubs 2 --export-clubs 20)

execute_process(COMMAND ${CLI} --game-dir "${dir}" send-turnsheets --dry-run RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "send-turnsheets --dry-run failed (${rc}): ${err}")
endif()
file(GLOB sheets "${dir}/Turnsheet/*.txt")
list(LENGTH sheets files)
string(JSON messages LENGTH "${out}")
if(NOT messages EQUAL files OR files LESS 1)
  message(FATAL_ERROR "${messages} messages for ${files} Turnsheets: ${out}")
endif()
string(JSON to GET "${out}" 0 To)
string(JSON subject GET "${out}" 0 Subject)
string(JSON body GET "${out}" 0 Body)
if(NOT to STREQUAL "turns@kestrin-league.example" OR NOT subject MATCHES " - Kestrin Football League Turnsheet For "
   OR body MATCHES "League Number" OR NOT body MATCHES "Club Name:")
  message(FATAL_ERROR "unexpected message: ${to} / ${subject}")
endif()

execute_process(COMMAND ${CLI} --game-dir "${dir}" admin-text RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
string(STRIP "${out}" heading)
if(NOT rc EQUAL 0 OR NOT heading STREQUAL "Weekly Administration")
  message(FATAL_ERROR "admin-text with no order: ${rc} '${out}' ${err}")
endif()
file(REMOVE_RECURSE "${dir}")

# kestrin-cli without arguments prints its usage and exits 2.
execute_process(COMMAND ${CLI} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 2)
  message(FATAL_ERROR "expected exit 2, got ${rc}")
endif()
if(NOT err MATCHES "usage: kestrin-cli")
  message(FATAL_ERROR "no usage text: ${err}")
endif()

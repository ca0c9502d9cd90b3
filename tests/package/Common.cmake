# Helpers of the package tests.

# Runs a command and stops the test with its output when it fails; gives its standard output in `output`.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT result EQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "failed with ${result}: ${command}\n${out}\n${err}")
  endif()
  set(output "${out}" PARENT_SCOPE)
endfunction()

# What the tiny host prints for the sample catalog.
function(check_tiny_host_output text)
  if(NOT text MATCHES "^Revêtement: 12 codes\nJoints: [0-9]+ codes\n")
    message(FATAL_ERROR "the tiny host printed:\n${text}")
  endif()
endfunction()

set(PREFIX ${SCRATCH_DIR}/prefix)
set(SAMPLES ${PREFIX}/${DATADIR}/orvida-catalogs/samples/)

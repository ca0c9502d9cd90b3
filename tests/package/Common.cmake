# Helpers of the package tests.

# Runs a command; sets `output` to its standard output. If it fails, prints all output and ends the test.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT result EQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "failed with ${result}: ${command}\n${out}\n${err}")
  endif()
  set(output "${out}" PARENT_SCOPE)
endfunction()

# Sets `difference` to how `text` differs from the file `expected`; empty if they are equal.
function(difference expected text)
  get_filename_component(name ${expected} NAME)
  file(WRITE ${SCRATCH_DIR}/found/${name} "${text}")
  execute_process(COMMAND diff -u ${expected} ${SCRATCH_DIR}/found/${name}
    OUTPUT_VARIABLE out ERROR_VARIABLE out)
  set(difference "${out}" PARENT_SCOPE)
endfunction()

# Checks what the tiny host prints for the sample catalog.
function(check_tiny_host_output text)
  if(NOT text MATCHES "^Revêtement: 12 codes\nJoints: [0-9]+ codes\n")
    message(FATAL_ERROR "the tiny host printed:\n${text}")
  endif()
endfunction()

# Builds the tiny host, which finds the package below `where` with find_package, and runs it with the sample
# in `samples`. `name` keeps the hosts of several tests apart.
function(check_tiny_host_with_cmake name where samples)
  set(host ${SCRATCH_DIR}/host-${name})
  run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/package/host -B ${host} -G ${GENERATOR}
    -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_PREFIX_PATH=${where})
  run(${CMAKE_COMMAND} --build ${host})
  run(${host}/tinyhost ${samples})
  check_tiny_host_output("${output}")
endfunction()

# The same with pkg-config, for the package in the library folder `libraries`.
function(check_tiny_host_with_pkg_config name libraries samples)
  set(ENV{PKG_CONFIG_PATH} ${libraries}/pkgconfig)
  run(pkg-config --cflags --libs orvida-catalogs)
  string(STRIP "${output}" flags)
  separate_arguments(flags UNIX_COMMAND "${flags}")
  run(${CXX} -std=c++17 ${SOURCE_DIR}/tests/package/host/main.cpp -o ${SCRATCH_DIR}/tinyhost-${name} ${flags})
  set(ENV{LD_LIBRARY_PATH} ${libraries})
  run(${SCRATCH_DIR}/tinyhost-${name} ${samples})
  check_tiny_host_output("${output}")
endfunction()

set(PREFIX ${SCRATCH_DIR}/prefix)
set(SAMPLES ${PREFIX}/${DATADIR}/orvida-catalogs/samples/)

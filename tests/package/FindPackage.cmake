# A host configures against the installed package with find_package, builds and runs.
include(${CMAKE_CURRENT_LIST_DIR}/Common.cmake)
set(host ${SCRATCH_DIR}/host-cmake)
run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/package/host -B ${host} -G ${GENERATOR}
  -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_PREFIX_PATH=${PREFIX})
run(${CMAKE_COMMAND} --build ${host})
run(${host}/tinyhost ${SAMPLES})
check_tiny_host_output("${output}")

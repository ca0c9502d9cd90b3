# A host finds the installed package with find_package, builds and runs; its requests for versions and
# components are answered.
include(${CMAKE_CURRENT_LIST_DIR}/Common.cmake)
check_tiny_host_with_cmake(installed ${PREFIX} ${SAMPLES})
build_host(checkinghost ${PREFIX} ${SCRATCH_DIR}/checkinghost)
check_checking_host(${SCRATCH_DIR}/checkinghost/checkinghost ${SAMPLES})
run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/package/requests -B ${SCRATCH_DIR}/requests -G ${GENERATOR}
  -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_PREFIX_PATH=${PREFIX} -DVERSION=${VERSION})

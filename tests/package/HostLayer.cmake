# The library builds and runs with a host's own layer in place of the stand-in, headers included.
include(${CMAKE_CURRENT_LIST_DIR}/Common.cmake)
set(host ${BUILD_DIR}/hostlayer)
run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/hostlayer -B ${host} -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${CXX}
  -DCMAKE_BUILD_TYPE=Debug)
run(${CMAKE_COMMAND} --build ${host})
run(${host}/recordinghost-check)

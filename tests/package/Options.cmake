# Options of this project configured alone: no tests without BUILD_TESTING, no static build.
include(${CMAKE_CURRENT_LIST_DIR}/Common.cmake)
set(configure ${CMAKE_COMMAND} --fresh -S ${SOURCE_DIR} -B ${SCRATCH_DIR}/options -G ${GENERATOR}
  -DCMAKE_CXX_COMPILER=${CXX})
run(${configure} -DBUILD_TESTING=OFF)
if(EXISTS ${SCRATCH_DIR}/options/tests)
  message(SEND_ERROR "BUILD_TESTING is OFF, and tests are there")
endif()

execute_process(COMMAND ${configure} -DBUILD_SHARED_LIBS=OFF
  RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE message)
if(result EQUAL 0 OR NOT message MATCHES "has no static build")
  message(SEND_ERROR "BUILD_SHARED_LIBS=OFF: result ${result}, said:\n${message}")
endif()

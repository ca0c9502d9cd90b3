# The README's host is the tiny host of the package tests, and its form of a code is exactly what the tool
# prints.
include(${CMAKE_CURRENT_LIST_DIR}/Common.cmake)
file(READ ${SOURCE_DIR}/README.md readme)
file(READ ${SOURCE_DIR}/tests/package/host/main.cpp host)
run(${BUILD_DIR}/tools/orvida-catalog show --code ERG ${BUILD_DIR}/samples/tunnels.xml)

foreach(block "```cpp\n${host}```" "$ orvida-catalog show --code ERG tunnels.xml\n${output}```")
  string(FIND "${readme}" "${block}" position)
  if(position EQUAL -1)
    message(SEND_ERROR "README.md does not contain this:\n${block}")
  endif()
endforeach()

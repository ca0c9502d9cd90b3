# The README's host is the tiny host of the package tests, and its form of a code is exactly what the tool
# prints, as is what it and the page on checking show of a check.
include(${CMAKE_CURRENT_LIST_DIR}/Common.cmake)
file(READ ${SOURCE_DIR}/README.md readme)
file(READ ${SOURCE_DIR}/tests/package/host/main.cpp host)
run(${BUILD_DIR}/tools/orvida-catalog show --code ERG ${BUILD_DIR}/samples/tunnels.xml)

set(show "$ orvida-catalog show --code ERG tunnels.xml\n${output}```")

set(files ${SOURCE_DIR}/tests/tools/transcripts/files)
execute_process(COMMAND ${BUILD_DIR}/tools/orvida-catalog check --readable joints.xml
  WORKING_DIRECTORY ${files} OUTPUT_VARIABLE output)
set(check "```text\n$ orvida-catalog check --readable joints.xml\n${output}```")
file(READ ${SOURCE_DIR}/docs/checking.md page)
string(FIND "${page}" "${check}" position)
if(position EQUAL -1)
  message(SEND_ERROR "docs/checking.md does not show this as it is:\n${check}")
endif()

foreach(block "```cpp\n${host}```" "${show}" "${check}")
  string(FIND "${readme}" "${block}" position)
  if(position EQUAL -1)
    message(SEND_ERROR "README.md does not contain this:\n${block}")
  endif()
endforeach()

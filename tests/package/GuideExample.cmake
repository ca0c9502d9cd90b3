# The host guide shows the host of the package tests that tells its users what is wrong with a catalog.
file(READ ${SOURCE_DIR}/docs/host-guide.md guide)
file(READ ${SOURCE_DIR}/tests/package/checkinghost/main.cpp host)
string(FIND "${guide}" "```cpp\n${host}```" position)
if(position EQUAL -1)
  message(SEND_ERROR "docs/host-guide.md does not show this as it is:\n${host}")
endif()

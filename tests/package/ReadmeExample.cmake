# The host in the README is the tiny host of the package tests, to the letter.
file(READ ${SOURCE_DIR}/README.md readme)
file(READ ${SOURCE_DIR}/tests/package/host/main.cpp example)
string(FIND "${readme}" "```cpp\n${example}```" position)
if(position EQUAL -1)
  message(FATAL_ERROR "README.md does not show tests/package/host/main.cpp as it is")
endif()

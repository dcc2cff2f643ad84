# README shows the program CLIENT as it is, without its first comment.

file(READ "${README}" readme)
file(READ "${CLIENT}" client)
string(REGEX REPLACE "^//[^\n]*\n\n" "" program "${client}")
string(FIND "${readme}" "```cpp\n${program}```\n" at)
if(program STREQUAL client OR at EQUAL -1)
  message(FATAL_ERROR "${README} does not show ${CLIENT}")
endif()

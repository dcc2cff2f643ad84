# Writes VANTIRO_CLASS(<class>) for every class that the units' headers declare
# and before them the units' includes: OUTPUT from FOLDER/<each of STEMS>.pb.h.
# Every class has one declaration by which an arena creates it.
set(includes "")
set(classes "")
foreach(stem IN LISTS STEMS)
  string(APPEND includes "#include \"${stem}.pb.h\"\n")
  file(STRINGS "${FOLDER}/${stem}.pb.h" lines
    REGEX "Arena::CreateMaybeMessage<.*>\\(")
  foreach(line IN LISTS lines)
    string(REGEX REPLACE ".*CreateMaybeMessage<([^>]*)>.*" "\\1" class "${line}")
    string(APPEND classes "VANTIRO_CLASS(${class})\n")
  endforeach()
endforeach()
file(WRITE "${OUTPUT}"
  "#ifdef VANTIRO_CLASS\n${classes}#else\n${includes}#endif\n")

# Writes OUTPUT: VANTIRO_CLASS(<class>) for every class that the headers
# FOLDER/<each of STEMS>.pb.h declare, or their includes if VANTIRO_CLASS is not
# defined. The classes are taken from the declarations of CreateMaybeMessage, of
# which every class has one.
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

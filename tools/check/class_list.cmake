# Writes OUTPUT: VANTIRO_CLASS(<class>) for every class that the headers
# FOLDER/<each of STEMS>.pb.h declare, or their includes if VANTIRO_CLASS is not
# defined. The classes are taken from the declarations of CreateMaybeMessage, of
# which every class has one: it returns the class.
set(includes "")
set(classes "")
foreach(stem IN LISTS STEMS)
  string(APPEND includes "#include \"${stem}.pb.h\"\n")
  file(READ "${FOLDER}/${stem}.pb.h" header)
  string(REGEX MATCHALL "template ?<>[^;*]*[*][ \n]*Arena::CreateMaybeMessage"
    declarations "${header}")
  foreach(declaration IN LISTS declarations)
    string(REGEX REPLACE "template ?<>|[*].*|[ \n]" "" class "${declaration}")
    string(APPEND classes "VANTIRO_CLASS(${class})\n")
  endforeach()
endforeach()
file(WRITE "${OUTPUT}"
  "#ifdef VANTIRO_CLASS\n${classes}#else\n${includes}#endif\n")

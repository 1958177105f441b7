# Writes a source file that holds texts as bytes, for constants of a class that a header declares.
#
#   cmake -DOUTPUT=parts.cpp -DHEADER=Parts.h -DCLASS=Scope::Parts "-DTEXTS=page=page.html;script=a.js|b.js" -P ...
#
# TEXTS says which files, one after another, are the text of which constant. Scripts of several files become one function
# in strict mode, so that they share their names with each other and with nobody else.
set(source "// Made from the files of tools/brisko/inspector.\n#include \"${HEADER}\"\n\nnamespace {\n\n")
set(constants "")
foreach(text IN LISTS TEXTS)
  string(REGEX MATCH "^([a-z]+)=(.*)$" matched "${text}")
  set(name ${CMAKE_MATCH_1})
  string(REPLACE "|" ";" files "${CMAKE_MATCH_2}")
  set(bytes "")
  foreach(file IN LISTS files)
    file(READ ${file} more HEX)
    string(APPEND bytes "${more}")
  endforeach()
  if(name STREQUAL "script")
    string(HEX "(() => {\n'use strict';\n\n" before)
    string(HEX "})();\n" after)
    set(bytes "${before}${bytes}${after}")
  endif()
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
  string(APPEND source "const unsigned char ${name}Bytes[] = {${bytes}0};\n\n")
  string(APPEND constants "const char* const ${CLASS}::${name} = reinterpret_cast<const char*>(${name}Bytes);\n")
endforeach()
file(WRITE ${OUTPUT} "${source}} // namespace\n\n${constants}")

# Writes the sources of SOURCES (separated by "|") one after the other into the file JOINED:
#   cmake -DSOURCES=... -DJOINED=... -P join_sources.cmake
# What is local to a source is put into a namespace of its number, so that two may use one name. The compiler and
# the tests name files and lines as if each source were compiled alone.
set(joined)
set(number 0)
string(REPLACE "|" ";" sources "${SOURCES}")
foreach(source IN LISTS sources)
  math(EXPR number "${number} + 1")
  file(READ "${source}" text)
  string(REPLACE "\nnamespace {\n" "\nnamespace { namespace source_${number} {\n" text "${text}")
  string(REPLACE "\n}  // namespace\n" "\n}}\n" text "${text}")
  string(APPEND joined "#line 1 \"${source}\"\n${text}")
endforeach()
file(WRITE "${JOINED}" "${joined}")

# Compiles SOURCE to LIBRARY for BITS:
#   cmake -DWIDL=... -DBITS=64 -DIDL_DIR=... -DSTDOLE_DIR=... -DSOURCE=... -DLIBRARY=... -P compile_type_library.cmake
# What widl says of identifiers that are there twice is left out: it takes an enumeration for two types, one with its name and one
# without, and reads the system's type library twice.
execute_process(COMMAND ${WIDL} -I ${IDL_DIR} -L ${STDOLE_DIR} -t --win${BITS} -o ${LIBRARY} ${SOURCE}
                RESULT_VARIABLE status ERROR_VARIABLE messages)
string(REGEX REPLACE "warning: duplicate uuid [^\n]*\n" "" messages "${messages}")
if(NOT messages STREQUAL "")
  message("${messages}")
endif()
if(NOT status EQUAL 0)
  file(REMOVE ${LIBRARY})
  message(FATAL_ERROR "widl does not compile ${SOURCE}: ${status}")
endif()

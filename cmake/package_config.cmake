# Runs when packing, once for each kind of package.
if(CPACK_GENERATOR STREQUAL "DEB")
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/package_debian.cmake)
  execute_process(COMMAND dpkg-query --search ${CPACK_LEVELWIDGETS_PKG_CONFIG_FILES}
                  OUTPUT_VARIABLE owners COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL "(^|\n)[^:\n]+" packages "${owners}")
  list(TRANSFORM packages STRIP)
  list(SORT packages)
  list(REMOVE_DUPLICATES packages)
  list(JOIN packages ", " CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS)
elseif(CPACK_GENERATOR STREQUAL "ZIP")
  set(CPACK_PACKAGING_INSTALL_PREFIX /)
endif()

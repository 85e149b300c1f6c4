# Runs before Debian packages are made of what was installed: licence and history to where Debian wants them.
find_program(gzip gzip REQUIRED)
string(TIMESTAMP now "%a, %d %b %Y %H:%M:%S +0000" UTC)
foreach(component Runtime Development)
  string(TOUPPER ${component} upper)
  set(package ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
  set(folder ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${component}/usr/share/doc/${package})
  file(MAKE_DIRECTORY ${folder})
  file(COPY_FILE ${CPACK_RESOURCE_FILE_LICENSE} ${folder}/copyright)
  if(EXISTS ${folder}/LICENSE)  # by this name the pages link to it
    file(REMOVE ${folder}/LICENSE)
    file(CREATE_LINK copyright ${folder}/LICENSE SYMBOLIC)
  endif()
  file(WRITE ${folder}/changelog "${package} (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium

  * Version ${CPACK_PACKAGE_VERSION}.

 -- ${CPACK_PACKAGE_CONTACT}  ${now}
")
  execute_process(COMMAND ${gzip} -9nf ${folder}/changelog COMMAND_ERROR_IS_FATAL ANY)
endforeach()

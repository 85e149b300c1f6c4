# Installing. Runtime is the program with its examples, Development what programs are built with.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/LevelWidgets)
set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
set(generated ${PROJECT_BINARY_DIR}/package)
get_property(components GLOBAL PROPERTY LEVELWIDGETS_COMPONENTS)
# Loaded only when asked for.
set(optional_components testing)

# Appends `name` after all that it needs.
function(levelwidgets_with_needs name result)
  set(list ${${result}})
  get_property(depends GLOBAL PROPERTY LEVELWIDGETS_${name}_DEPENDS)
  foreach(other ${depends})
    levelwidgets_with_needs(${other} list)
  endforeach()
  list(APPEND list ${name})
  list(REMOVE_DUPLICATES list)
  set(${result} ${list} PARENT_SCOPE)
endfunction()

# --- Libraries, and the CMake package ---------------------------------------------------------------------

set(LEVELWIDGETS_TABLE)
set(names)
set(default_names)
foreach(name ${components})
  levelwidgets_component(${name} component)
  install(TARGETS levelwidgets_${name} EXPORT LevelWidgets${component}
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development)
  install(EXPORT LevelWidgets${component} NAMESPACE LevelWidgets:: DESTINATION ${package_dir}
          COMPONENT Development)

  set(closure)
  levelwidgets_with_needs(${name} closure)
  set(needs)
  foreach(other ${closure})
    levelwidgets_component(${other} other)
    list(APPEND needs ${other})
  endforeach()
  get_property(modules GLOBAL PROPERTY LEVELWIDGETS_${name}_MODULES)
  list(JOIN needs " " needs)
  list(JOIN modules " " modules)
  string(APPEND LEVELWIDGETS_TABLE "set(_LevelWidgets_${component}_needs ${needs})\n"
                                   "set(_LevelWidgets_${component}_modules ${modules})\n")
  list(APPEND names ${component})
  if(NOT name IN_LIST optional_components)
    list(APPEND default_names ${component})
  endif()
endforeach()
list(SORT names)
list(JOIN names " " LEVELWIDGETS_NAMES)
list(JOIN default_names " " LEVELWIDGETS_DEFAULT_NAMES)

configure_package_config_file(cmake/LevelWidgetsConfig.cmake.in ${generated}/LevelWidgetsConfig.cmake
                              INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${generated}/LevelWidgetsConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${generated}/LevelWidgetsConfig.cmake ${generated}/LevelWidgetsConfigVersion.cmake
        DESTINATION ${package_dir} COMPONENT Development)

# --- pkg-config -------------------------------------------------------------------------------------------

file(RELATIVE_PATH LEVELWIDGETS_UP /${pkgconfig_dir} /)
string(REGEX REPLACE "/$" "" LEVELWIDGETS_UP ${LEVELWIDGETS_UP})

# One file each; where `library` is "", one that only names others.
function(levelwidgets_pkg_config file description library requires libraries)
  list(JOIN requires " " LEVELWIDGETS_REQUIRES)
  set(LEVELWIDGETS_LIBS)
  if(library)
    set(LEVELWIDGETS_LIBS "-L\${libdir} -l${library}")
  endif()
  foreach(other ${libraries})
    string(APPEND LEVELWIDGETS_LIBS " -l${other}")
  endforeach()
  set(LEVELWIDGETS_FILE ${file})
  set(LEVELWIDGETS_DESCRIPTION "${description}")
  configure_file(cmake/levelwidgets.pc.in ${generated}/${file}.pc @ONLY)
  install(FILES ${generated}/${file}.pc DESTINATION ${pkgconfig_dir} COMPONENT Development)
endfunction()

foreach(name ${components})
  get_property(depends GLOBAL PROPERTY LEVELWIDGETS_${name}_DEPENDS)
  get_property(modules GLOBAL PROPERTY LEVELWIDGETS_${name}_MODULES)
  get_property(libraries GLOBAL PROPERTY LEVELWIDGETS_${name}_LIBRARIES)
  if(name STREQUAL testing)
    list(APPEND modules gmock)
  endif()
  list(TRANSFORM depends PREPEND levelwidgets-)
  get_target_property(kind levelwidgets_${name} TYPE)
  set(library)
  if(NOT kind STREQUAL INTERFACE_LIBRARY)
    set(library levelwidgets_${name})
  endif()
  levelwidgets_component(${name} component)
  levelwidgets_pkg_config(levelwidgets-${name} "${PROJECT_DESCRIPTION}: ${component}" "${library}"
                          "${depends};${modules}" "${libraries}")
endforeach()
levelwidgets_pkg_config(levelwidgets "${PROJECT_DESCRIPTION}" "" "levelwidgets-host;levelwidgets-native" "")

# --- Headers: the public ones, and what they include -----------------------------------------------------

get_property(headers GLOBAL PROPERTY LEVELWIDGETS_PUBLIC_HEADERS)
install(CODE "include(\"${PROJECT_SOURCE_DIR}/cmake/install_headers.cmake\")
levelwidgets_install_headers(\"${PROJECT_SOURCE_DIR}\" \"${CMAKE_INSTALL_INCLUDEDIR}\" \"${headers}\")"
        COMPONENT Development)

# --- The program, the pages and the examples ---------------------------------------------------------------

if(LEVELWIDGETS_PROGRAM)
  install(TARGETS levelwidgets RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Runtime)
endif()
# In one folder, as in the tree: the pages link to the examples, and an example alone explains little.
set(pages_dir ${CMAKE_INSTALL_DATADIR}/doc/levelwidgets)
install(DIRECTORY examples DESTINATION ${pages_dir} COMPONENT Runtime)
install(FILES LICENSE DESTINATION ${pages_dir} COMPONENT Runtime)
install(CODE "include(\"${PROJECT_SOURCE_DIR}/cmake/install_pages.cmake\")
levelwidgets_install_pages(\"${PROJECT_SOURCE_DIR}\" \"${pages_dir}\" \"${generated}/pages\")"
        COMPONENT Runtime)
if(CMAKE_CROSSCOMPILING AND CMAKE_TOOLCHAIN_FILE)
  install(FILES ${CMAKE_TOOLCHAIN_FILE} DESTINATION ${package_dir} COMPONENT Development)
endif()

# All that installing takes.
list(TRANSFORM components PREPEND levelwidgets_ OUTPUT_VARIABLE targets)
add_custom_target(levelwidgets_installed DEPENDS ${targets})
if(LEVELWIDGETS_PROGRAM)
  add_dependencies(levelwidgets_installed levelwidgets)
endif()

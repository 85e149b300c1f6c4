# Packages, as tools/package makes them.

set(CPACK_PACKAGE_NAME levelwidgets)
set(CPACK_PACKAGE_VENDOR "The LevelWidgets developers")
set(CPACK_PACKAGE_CONTACT "The LevelWidgets developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "flat controls for forms, on Windows and on a desktop in memory")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_COMPONENTS_ALL Runtime Development)
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/cmake/package_config.cmake)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
else()
  set(CPACK_GENERATOR DEB)
endif()

# The packages of the libraries that this one needs are those that hold their pkg-config files.
set(CPACK_LEVELWIDGETS_PKG_CONFIG_FILES)
foreach(name ${components})
  get_property(modules GLOBAL PROPERTY LEVELWIDGETS_${name}_MODULES)
  foreach(module ${modules})
    pkg_get_variable(folder ${module} pcfiledir)
    list(APPEND CPACK_LEVELWIDGETS_PKG_CONFIG_FILES ${folder}/${module}.pc)
  endforeach()
endforeach()

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME levelwidgets)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS fonts-wine)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SUGGESTS liblevelwidgets-dev)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "Forms are text files with flat controls: buttons, labels, scroll bars, tab
strips, text boxes. This program draws them to pictures, runs their Lua
scripts on a desktop in memory that needs no display, reports what is wrong
with them and describes the controls.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME liblevelwidgets-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_RECOMMENDS "cmake | pkg-config, levelwidgets")  # which has the pages and examples
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "libgmock-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Flat controls (buttons, labels, scroll bars, tab strips, text boxes) for
form-based applications, written once for Windows and for a desktop in
memory on which forms are driven and tested without a display. This package
has the headers, static libraries, CMake and pkg-config files.")

include(CPack)

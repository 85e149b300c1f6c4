# What others get of the libraries: their names, and what a program that links them needs besides.
include(GNUInstallDirs)

# The name in find_package and behind LevelWidgets:: of the folder `name`: Memory for memory.
function(levelwidgets_component name result)
  string(SUBSTRING ${name} 0 1 initial)
  string(SUBSTRING ${name} 1 -1 rest)
  string(TOUPPER ${initial} initial)
  set(${result} ${initial}${rest} PARENT_SCOPE)
endfunction()

# Makes the folder `name` a component. The system's libraries and those found by pkg-config among its private
# dependencies become the needs of whoever links it; archives of this tree become components as well.
function(levelwidgets_export name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "DEPENDS;PRIVATE_DEPENDS;PUBLIC_HEADERS")
  levelwidgets_component(${name} component)
  set(target levelwidgets_${name})
  add_library(LevelWidgets::${component} ALIAS ${target})
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${component})
  target_include_directories(${target} INTERFACE $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  if(NOT arg_PUBLIC_HEADERS)
    file(GLOB arg_PUBLIC_HEADERS CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} *.h parts/*.h)
    list(FILTER arg_PUBLIC_HEADERS EXCLUDE REGEX "(_fixture|_testing|_cases)\\.h$|^test_")
  endif()
  file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
  list(TRANSFORM arg_PUBLIC_HEADERS PREPEND ${folder}/)
  set_property(GLOBAL APPEND PROPERTY LEVELWIDGETS_COMPONENTS ${name})
  set_property(GLOBAL APPEND PROPERTY LEVELWIDGETS_PUBLIC_HEADERS ${arg_PUBLIC_HEADERS})
  set_property(GLOBAL PROPERTY LEVELWIDGETS_${name}_DEPENDS ${arg_DEPENDS})
  levelwidgets_export_needs(${name} ${arg_PRIVATE_DEPENDS})
endfunction()

# Adds `libraries` to what the users of the component `name` link.
function(levelwidgets_export_needs name)
  foreach(library ${ARGN})
    if(library MATCHES "^PkgConfig::(.*)")
      # Found again by the user's side, under a name that cannot be one of the user's own.
      set(module ${${CMAKE_MATCH_1}_MODULE_NAME})
      string(MAKE_C_IDENTIFIER LevelWidgets_${module} found)
      set_property(GLOBAL APPEND PROPERTY LEVELWIDGETS_${name}_MODULES ${module})
      set(installed PkgConfig::${found})
    elseif(library MATCHES "^levelwidgets_(.*)")
      get_target_property(kind ${library} TYPE)
      if(kind STREQUAL INTERFACE_LIBRARY)
        get_target_property(behind ${library} INTERFACE_LINK_LIBRARIES)
        levelwidgets_export_needs(${name} ${behind})
        continue()
      endif()
      set(installed ${library})
      set_property(GLOBAL APPEND PROPERTY LEVELWIDGETS_${name}_DEPENDS ${CMAKE_MATCH_1})
      levelwidgets_export_archive(${CMAKE_MATCH_1})
    else()
      set_property(GLOBAL APPEND PROPERTY LEVELWIDGETS_${name}_LIBRARIES ${library})
      set(installed ${library})
    endif()
    target_link_libraries(levelwidgets_${name} INTERFACE $<INSTALL_INTERFACE:$<LINK_ONLY:${installed}>>)
  endforeach()
endfunction()

# An archive of other people's sources that is compiled here: to be linked, and no more.
function(levelwidgets_export_archive name)
  get_property(components GLOBAL PROPERTY LEVELWIDGETS_COMPONENTS)
  if(name IN_LIST components)
    return()
  endif()
  get_target_property(includes levelwidgets_${name} INTERFACE_INCLUDE_DIRECTORIES)
  levelwidgets_component(${name} component)
  set_target_properties(levelwidgets_${name} PROPERTIES
    EXPORT_NAME ${component}
    INTERFACE_INCLUDE_DIRECTORIES "$<BUILD_INTERFACE:${includes}>"
    INTERFACE_SYSTEM_INCLUDE_DIRECTORIES "$<BUILD_INTERFACE:${includes}>")
  set_property(GLOBAL APPEND PROPERTY LEVELWIDGETS_COMPONENTS ${name})
endfunction()

# What the system that is built for can do. Folders (NEEDS) and sources (levelwidgets_only_with) are chosen by this, and
# not by the system's name.
#
#   system_windows   windows that are the system's own
#   memory_desktop   the desktop in memory: FreeType draws its texts, Fontconfig finds the fonts
#   presenter        native windows for the desktop in memory, by SDL
#   native_windows   windows that people see: one of the two
#   pictures         PNG files
#   processes        processes that a program starts, watches and ends in the manner of POSIX

# levelwidgets_find_modules(RESULT MODULE...): whether pkg-config knows them all for the system that is built for. Each is
# PkgConfig::name then, without the digits that end it.
function(levelwidgets_find_modules result)
  set(${result} FALSE PARENT_SCOPE)
  if(CMAKE_CROSSCOMPILING AND NOT PKG_CONFIG_EXECUTABLE)
    return()  # the machine's own pkg-config knows only of the machine's libraries
  endif()
  find_package(PkgConfig QUIET)
  if(NOT PKG_CONFIG_FOUND)
    return()
  endif()
  foreach(module ${ARGN})
    string(REGEX REPLACE "[0-9]+$" "" name ${module})
    pkg_check_modules(${name} QUIET IMPORTED_TARGET GLOBAL ${module})
    if(NOT ${name}_FOUND)
      return()
    endif()
  endforeach()
  set(${result} TRUE PARENT_SCOPE)
endfunction()

set(LEVELWIDGETS_HAS_system_windows FALSE)
if(WIN32)
  set(LEVELWIDGETS_HAS_system_windows TRUE)
endif()
set(LEVELWIDGETS_HAS_processes FALSE)
if(UNIX)
  set(LEVELWIDGETS_HAS_processes TRUE)
endif()
levelwidgets_find_modules(LEVELWIDGETS_HAS_memory_desktop freetype2 fontconfig)
levelwidgets_find_modules(LEVELWIDGETS_HAS_pictures libpng)
levelwidgets_find_modules(LEVELWIDGETS_HAS_presenter sdl2)
if(NOT LEVELWIDGETS_HAS_memory_desktop)
  set(LEVELWIDGETS_HAS_presenter FALSE)
endif()
set(LEVELWIDGETS_HAS_native_windows FALSE)
if(LEVELWIDGETS_HAS_system_windows OR LEVELWIDGETS_HAS_presenter)
  set(LEVELWIDGETS_HAS_native_windows TRUE)
endif()
if(NOT LEVELWIDGETS_HAS_system_windows AND NOT LEVELWIDGETS_HAS_memory_desktop)
  message(FATAL_ERROR "There are no windows to be had: the desktop in memory needs FreeType and Fontconfig.")
endif()

# levelwidgets_only_with(CAPABILITY... SOURCES source...): these sources of the folder are compiled where the system has all of
# these capabilities; with levelwidgets_only_without, where it lacks one.
function(levelwidgets_only_with)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "" "SOURCES")
  levelwidgets_has_all(has_all ${arg_UNPARSED_ARGUMENTS})
  if(NOT has_all)
    levelwidgets_leave_out(${arg_SOURCES})
  endif()
endfunction()

function(levelwidgets_only_without)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "" "SOURCES")
  levelwidgets_has_all(has_all ${arg_UNPARSED_ARGUMENTS})
  if(has_all)
    levelwidgets_leave_out(${arg_SOURCES})
  endif()
endfunction()

function(levelwidgets_has_all result)
  set(${result} TRUE PARENT_SCOPE)
  foreach(capability ${ARGN})
    if(NOT DEFINED LEVELWIDGETS_HAS_${capability})
      message(FATAL_ERROR "cmake/Systems.cmake knows no capability \"${capability}\".")
    endif()
    if(NOT LEVELWIDGETS_HAS_${capability})
      set(${result} FALSE PARENT_SCOPE)
    endif()
  endforeach()
endfunction()

function(levelwidgets_leave_out)
  foreach(source ${ARGN})
    if(NOT EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${source})
      message(FATAL_ERROR "There is no source ${CMAKE_CURRENT_SOURCE_DIR}/${source}.")
    endif()
    set_property(GLOBAL APPEND PROPERTY LEVELWIDGETS_LEFT_OUT ${CMAKE_CURRENT_SOURCE_DIR}/${source})
  endforeach()
endfunction()

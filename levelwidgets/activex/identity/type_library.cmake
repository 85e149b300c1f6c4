# levelwidgets.idl, which tools/update_docs writes, becomes a type library for each bitness, and a resource of the components.

# The library of components calls for them from another folder.
set(LEVELWIDGETS_TYPE_LIBRARY_DIR ${CMAKE_CURRENT_LIST_DIR} CACHE INTERNAL "")
set(LEVELWIDGETS_TYPE_LIBRARIES ${PROJECT_BINARY_DIR}/type_library CACHE INTERNAL "")

# The folders of the system's interfaces as source text and as type library, which widl reads.
function(levelwidgets_find_interfaces)
  find_program(LEVELWIDGETS_WIDL x86_64-w64-mingw32-widl DOC "Compiles type libraries (mingw-w64-tools)")
  find_path(LEVELWIDGETS_IDL_DIR oaidl.idl PATHS /usr/include/wine/wine/windows NO_CMAKE_FIND_ROOT_PATH
            DOC "The system's interfaces as source text (libwine-dev)")
  file(GLOB folders /usr/lib/*/wine/*-windows)
  find_path(LEVELWIDGETS_STDOLE_DIR stdole2.tlb PATHS ${folders} NO_CMAKE_FIND_ROOT_PATH
            DOC "The system's own type library (libwine)")
  foreach(found WIDL IDL_DIR STDOLE_DIR)
    if(NOT LEVELWIDGETS_${found})
      get_property(help CACHE LEVELWIDGETS_${found} PROPERTY HELPSTRING)
      message(FATAL_ERROR "This is missing for the type library: ${help}. It installs what a build for Windows takes:\n"
                          "  bash -c 'source tools/setup.sh && need \"$windows_build_packages\"'")
    endif()
  endforeach()
endfunction()

# The target levelwidgets_type_libraries: levelwidgets64.tlb and levelwidgets32.tlb. What they hold is the same; a system
# of either bitness reads both, and registers its own.
function(levelwidgets_compile_type_libraries)
  levelwidgets_find_interfaces()
  set(source ${LEVELWIDGETS_TYPE_LIBRARY_DIR}/levelwidgets.idl)
  file(MAKE_DIRECTORY ${LEVELWIDGETS_TYPE_LIBRARIES})
  set(libraries)
  foreach(bits 64 32)
    set(library ${LEVELWIDGETS_TYPE_LIBRARIES}/levelwidgets${bits}.tlb)
    # It warns of each enumeration, which is known by a name and by none: in vain.
    add_custom_command(OUTPUT ${library}
      COMMAND ${CMAKE_COMMAND} -DWIDL=${LEVELWIDGETS_WIDL} -DBITS=${bits} -DIDL_DIR=${LEVELWIDGETS_IDL_DIR}
              -DSTDOLE_DIR=${LEVELWIDGETS_STDOLE_DIR} -DSOURCE=${source} -DLIBRARY=${library}
              -P ${LEVELWIDGETS_TYPE_LIBRARY_DIR}/compile_type_library.cmake
      DEPENDS ${source} ${LEVELWIDGETS_TYPE_LIBRARY_DIR}/compile_type_library.cmake
      COMMENT "Compiling the type library for ${bits} bits" VERBATIM)
    list(APPEND libraries ${library})
  endforeach()
  add_custom_target(levelwidgets_type_libraries DEPENDS ${libraries})
endfunction()

# Puts what containers look for in the file of the components into `target`: the type library of the system's bitness, as the
# first of its kind, and the pictures for toolboxes.
function(levelwidgets_component_resources target)
  math(EXPR bits "8 * ${CMAKE_SIZEOF_VOID_P}")
  set(library ${LEVELWIDGETS_TYPE_LIBRARIES}/levelwidgets${bits}.tlb)
  set(toolbox ${LEVELWIDGETS_TYPE_LIBRARY_DIR}/toolbox)
  file(GLOB pictures CONFIGURE_DEPENDS ${toolbox}/*)
  set(script ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
  set(object ${CMAKE_CURRENT_BINARY_DIR}/${target}_resources.o)
  file(CONFIGURE OUTPUT ${script} CONTENT "1 TYPELIB \"${library}\"\n#include \"toolbox.rc\"\n")
  add_custom_command(OUTPUT ${object}
    COMMAND ${CMAKE_RC_COMPILER} -O coff -I ${toolbox} -i ${script} -o ${object}
    DEPENDS ${script} levelwidgets_type_libraries ${library} ${pictures} VERBATIM)
  set_source_files_properties(${object} PROPERTIES EXTERNAL_OBJECT ON GENERATED ON)
  target_sources(${target} PRIVATE ${object})
endfunction()

# How every folder of the tree becomes a target.
include(${CMAKE_CURRENT_LIST_DIR}/Systems.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/Export.cmake)

# Designated initializers leave members to their defaults on purpose. In inlined std::string operations
# GCC 12 sees overlaps and overflows that do not exist; the sanitizers see the real ones.
set(LEVELWIDGETS_WARNINGS -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
    -Wno-missing-field-initializers -Wno-restrict -Wno-array-bounds -Wno-stringop-overflow
    -Wno-unknown-warning-option)

# How this tree is compiled; users of the libraries get nothing of it.
add_library(levelwidgets_options INTERFACE)
target_include_directories(levelwidgets_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(levelwidgets_options INTERFACE ${LEVELWIDGETS_WARNINGS})
if(LEVELWIDGETS_SANITIZE)
  target_compile_definitions(levelwidgets_options INTERFACE LEVELWIDGETS_SANITIZED)
  # The sanitizers' instructions hide from GCC that a variant's member is written before it is read.
  target_compile_options(levelwidgets_options INTERFACE -Wno-maybe-uninitialized)
  # Checks of each pointer for null and alignment take half of the time to compile, and find little: a null pointer that
  # is used ends in the address sanitizer all the same.
  target_compile_options(levelwidgets_options INTERFACE -fsanitize=address,undefined -fno-sanitize=null,alignment
                         -fno-sanitize-recover=all -fno-omit-frame-pointer)
  # Tests take less time to compile without checking the type of each object that they call, and without the numbers of their
  # lines: a report has those of the library's lines, and the names of all functions.
  target_compile_options(levelwidgets_options INTERFACE
                         "$<$<BOOL:$<TARGET_PROPERTY:LEVELWIDGETS_IS_TEST>>:-fno-sanitize=vptr;-g0>")
  # Without optimisation sources compile in a third of the time; all tests take hardly longer when these have it.
  set(LEVELWIDGETS_OPTIMIZED memory frame)
  # Checks of addresses that are called take less time to compile than those that stand in each place, and only the loops over
  # pixels run much longer with them.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    set(has_no_pixels "$<NOT:$<STREQUAL:$<TARGET_PROPERTY:NAME>,levelwidgets_memory>>")
    target_compile_options(levelwidgets_options INTERFACE
                           "$<${has_no_pixels}:SHELL:-mllvm -asan-instrumentation-with-call-threshold=0>")
  endif()
  target_link_options(levelwidgets_options INTERFACE -fsanitize=address,undefined)
endif()
if(LEVELWIDGETS_FUZZ)
  set(sanitizers -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  target_compile_options(levelwidgets_options INTERFACE ${sanitizers})
  target_link_options(levelwidgets_options INTERFACE ${sanitizers})
endif()
if(WIN32)
  target_compile_definitions(levelwidgets_options INTERFACE WINVER=0x0601 _WIN32_WINNT=0x0601)
  # Header-only libraries of the build machine, without the rest of its include folder.
  set(headers ${PROJECT_BINARY_DIR}/header-only)
  file(MAKE_DIRECTORY ${headers})
  foreach(library toml++ CLI nlohmann)
    if(EXISTS /usr/include/${library} AND NOT EXISTS ${headers}/${library})
      file(CREATE_LINK /usr/include/${library} ${headers}/${library} SYMBOLIC)
    endif()
  endforeach()
  target_include_directories(levelwidgets_options SYSTEM INTERFACE ${headers})
endif()

# One set of standard headers, compiled once and shared by every target.
add_library(levelwidgets_pch OBJECT ${PROJECT_SOURCE_DIR}/cmake/pch.cpp)
target_link_libraries(levelwidgets_pch PRIVATE levelwidgets_options)
target_precompile_headers(levelwidgets_pch PRIVATE
  <algorithm> <any> <array> <cmath> <cstdint> <functional> <map> <memory> <optional> <sstream>
  <string> <string_view> <unordered_map> <utility> <variant> <vector>)

# Adds each of the subfolders that says how it is built.
function(levelwidgets_folders)
  foreach(folder ${ARGN})
    if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/CMakeLists.txt)
      add_subdirectory(${folder})
    endif()
  endforeach()
endfunction()

# levelwidgets_library(frame DEPENDS platform): the folder's sources (and SOURCES) as target levelwidgets_frame,
# for others LevelWidgets::Frame. *_test.cpp files beside them go into the test program, and each *_fuzz.cpp is a
# fuzzer, which may need FUZZ_DEPENDS besides. The line is there on every system; the target only where the system has all
# that the folder NEEDS. It links to the folders of DEPENDS, and to those of OPTIONAL_DEPENDS that are there; its tests may
# use those of TEST_DEPENDS, too. What it may include follows from the same line (levelwidgets_write_folders). It is
# installed, and the headers of PUBLIC_HEADERS with it (all except the tests' where none are named; none with
# NO_PUBLIC_HEADERS), unless it is INTERNAL.
function(levelwidgets_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "INTERNAL;NO_PUBLIC_HEADERS" ""
                        "NEEDS;DEPENDS;OPTIONAL_DEPENDS;TEST_DEPENDS;PRIVATE_DEPENDS;FUZZ_DEPENDS;SOURCES;PUBLIC_HEADERS")
  levelwidgets_note_folder(${name} "${arg_DEPENDS};${arg_OPTIONAL_DEPENDS}" "${arg_TEST_DEPENDS};${arg_FUZZ_DEPENDS}"
                           "${arg_PUBLIC_HEADERS}")
  levelwidgets_has_all(can_be_built ${arg_NEEDS})
  if(NOT can_be_built)
    return()
  endif()
  foreach(other ${arg_OPTIONAL_DEPENDS})
    if(TARGET levelwidgets_${other})
      list(APPEND arg_DEPENDS ${other})
    endif()
  endforeach()
  file(GLOB sources CONFIGURE_DEPENDS *.cpp parts/*.cpp)
  get_property(left_out GLOBAL PROPERTY LEVELWIDGETS_LEFT_OUT)
  list(REMOVE_ITEM sources ${left_out})
  set(tests ${sources})
  set(fuzzers ${sources})
  list(FILTER fuzzers INCLUDE REGEX "_fuzz\\.cpp$")
  list(FILTER sources EXCLUDE REGEX "_(test|fuzz)\\.cpp$")
  list(FILTER tests INCLUDE REGEX "_test\\.cpp$")
  set_property(GLOBAL APPEND PROPERTY LEVELWIDGETS_NAMES ${name})
  set_property(GLOBAL PROPERTY LEVELWIDGETS_${name}_TESTS ${tests})
  set_property(GLOBAL PROPERTY LEVELWIDGETS_${name}_TEST_DEPENDS ${arg_TEST_DEPENDS})
  list(TRANSFORM arg_FUZZ_DEPENDS PREPEND levelwidgets_)
  set_property(GLOBAL PROPERTY LEVELWIDGETS_${name}_FUZZERS ${fuzzers})
  set_property(GLOBAL PROPERTY LEVELWIDGETS_${name}_FUZZ_LIBRARIES levelwidgets_${name} ${arg_FUZZ_DEPENDS})
  set(target levelwidgets_${name})
  if(sources OR arg_SOURCES)
    set(scope PUBLIC)
    add_library(${target} STATIC ${sources} ${arg_SOURCES})
    target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:levelwidgets_options>)
    target_precompile_headers(${target} REUSE_FROM levelwidgets_pch)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ${LEVELWIDGETS_JOIN_SOURCES} UNITY_BUILD_BATCH_SIZE 10)
    if(LEVELWIDGETS_SANITIZE AND name IN_LIST LEVELWIDGETS_OPTIMIZED)
      target_compile_options(${target} PRIVATE -O1)
      set_target_properties(${target} PROPERTIES DISABLE_PRECOMPILE_HEADERS ON)
    endif()
  else()  # a folder of headers
    set(scope INTERFACE)
    add_library(${target} INTERFACE)
  endif()
  target_compile_features(${target} ${scope} cxx_std_20)
  target_include_directories(${target} ${scope} $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>)
  list(TRANSFORM arg_DEPENDS PREPEND levelwidgets_ OUTPUT_VARIABLE depends)
  target_link_libraries(${target} ${scope} ${depends})
  list(TRANSFORM arg_PRIVATE_DEPENDS REPLACE "(.+)" "$<BUILD_INTERFACE:\\1>" OUTPUT_VARIABLE private_depends)
  target_link_libraries(${target} PRIVATE ${private_depends})
  if(arg_NO_PUBLIC_HEADERS)
    set(arg_PUBLIC_HEADERS NONE)
  endif()
  if(NOT arg_INTERNAL)
    levelwidgets_export(${name} DEPENDS ${arg_DEPENDS} PRIVATE_DEPENDS ${arg_PRIVATE_DEPENDS}
                        PUBLIC_HEADERS ${arg_PUBLIC_HEADERS})
  endif()
endfunction()

# Folders of headers that the test programs see when they link the folder `name`, and that nobody else does.
function(levelwidgets_include_in_tests name)
  set(is_test $<BOOL:$<TARGET_PROPERTY:LEVELWIDGETS_IS_TEST>>)
  target_include_directories(levelwidgets_${name} SYSTEM INTERFACE "$<BUILD_INTERFACE:$<${is_test}:${ARGN}>>")
endfunction()

# Each line is a folder: its path, its name, the names of the folders that it links to, those that its tests use besides, and
# its public headers ("*" for all), separated by tabs. tools/check reads which includes are right from here.
function(levelwidgets_note_folder name depends test_depends public_headers)
  file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
  set(line ${folder} ${name})
  foreach(column depends test_depends public_headers)
    list(REMOVE_ITEM ${column} "")
    list(JOIN ${column} " " ${column})
    string(APPEND line "\t${${column}}")
  endforeach()
  string(REPLACE ";" "\t" line "${line}")
  set_property(GLOBAL APPEND_STRING PROPERTY LEVELWIDGETS_FOLDERS "${line}\n")
endfunction()

function(levelwidgets_write_folders)
  get_property(folders GLOBAL PROPERTY LEVELWIDGETS_FOLDERS)
  file(WRITE ${PROJECT_BINARY_DIR}/folders.tsv "${folders}")
endfunction()

# Makes GoogleTest known as levelwidgets_gtest, where it is wanted; cross builds compile it from its source package. After
# it LEVELWIDGETS_TESTING is ON or OFF.
function(levelwidgets_find_gtest)
  set(sources /usr/src/googletest)
  if(LEVELWIDGETS_TESTS)
    set(LEVELWIDGETS_TESTING ON)
  elseif(LEVELWIDGETS_TESTING STREQUAL AUTO)
    set(LEVELWIDGETS_TESTING OFF)
    find_package(GTest QUIET)
    if(TARGET GTest::gmock OR (WIN32 AND EXISTS ${sources}))
      set(LEVELWIDGETS_TESTING ON)
    else()
      message(STATUS "GoogleTest is not there: the library for testing forms is left out")
    endif()
  endif()
  set(LEVELWIDGETS_TESTING ${LEVELWIDGETS_TESTING} PARENT_SCOPE)
  if(NOT LEVELWIDGETS_TESTING)
    return()
  endif()
  add_library(levelwidgets_gtest INTERFACE)
  if(WIN32)
    set(INSTALL_GTEST OFF)
    add_subdirectory(${sources} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
    # Like the tests. It takes 16 seconds to optimise, and nobody gets it.
    target_compile_options(gtest PRIVATE -O0)
    target_compile_options(gmock PRIVATE -O0)
    target_link_libraries(levelwidgets_gtest INTERFACE gmock)
  else()
    find_package(GTest REQUIRED)
    target_link_libraries(levelwidgets_gtest INTERFACE GTest::gmock)
  endif()
endfunction()

# Makes Lua known as levelwidgets_lua. It is compiled as C++: an error of a script unwinds as an exception, so
# that destructors run. Cross builds compile it from its source package.
function(levelwidgets_find_lua)
  if(NOT WIN32)
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(lua REQUIRED IMPORTED_TARGET lua5.4-c++)
    add_library(levelwidgets_lua INTERFACE)
    target_link_libraries(levelwidgets_lua INTERFACE PkgConfig::lua)
    return()
  endif()
  set(folder ${PROJECT_SOURCE_DIR}/build/sources/lua5.4/src)
  if(NOT EXISTS ${folder}/lua.h)
    message(FATAL_ERROR "Lua's sources are not in build/sources/lua5.4. This fetches them:\n"
                        "  bash -c 'source tools/setup.sh && need_source lua5.4'")
  endif()
  file(GLOB sources ${folder}/*.c)
  list(REMOVE_ITEM sources ${folder}/lua.c ${folder}/luac.c)  # programs
  set_source_files_properties(${sources} PROPERTIES LANGUAGE CXX)
  add_library(levelwidgets_lua STATIC ${sources})
  target_include_directories(levelwidgets_lua SYSTEM PUBLIC ${folder})
  target_compile_definitions(levelwidgets_lua PRIVATE LUA_COMPAT_5_3)
  target_compile_options(levelwidgets_lua PRIVATE -w)
endfunction()

# Makes targets of a cross build for Windows be linked by LLVM's linker where it is there: for a program of this many
# objects the one of the compiler takes minutes, this one a second. GCC has no option for another linker of a
# cross compiler; it calls the "collect2" of a folder that it is given instead of its own.
function(levelwidgets_link_quickly target)
  find_program(LEVELWIDGETS_LLD ld.lld)
  if(NOT CMAKE_CROSSCOMPILING OR NOT LEVELWIDGETS_LLD)
    return()
  endif()
  set(linker ${PROJECT_BINARY_DIR}/linker)
  file(WRITE ${linker}/collect2 "#!/bin/sh\nexec '${LEVELWIDGETS_LLD}' \"$@\"\n")
  file(CHMOD ${linker}/collect2 PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
  target_link_options(${target} PRIVATE -fno-use-linker-plugin -B${linker})
endfunction()

# Makes a target of a cross build for Windows be compiled by Clang where it is there.
function(levelwidgets_compile_quickly target)
  find_program(LEVELWIDGETS_CLANG clang++)
  if(CMAKE_CROSSCOMPILING AND LEVELWIDGETS_CLANG)
    set_target_properties(${target} PROPERTIES
      CXX_COMPILER_LAUNCHER ${PROJECT_SOURCE_DIR}/cmake/clang_for_windows.sh)
  else()
    target_compile_options(${target} PRIVATE -Wa,-mbig-obj)
  endif()
endfunction()

# Sources that say what `sources` do, many in each: what the tests have in common is read and compiled once in each. Each is
# about as long as the others, so that two of them take two cores. Tests of folders that read headers of the system
# stand last, since those name macros like the methods of others. Those of a library are joined by CMake (UNITY_BUILD); tests
# are full of local names that other tests have, too.
function(levelwidgets_join_tests sources result)
  set(longest 200000)
  set(last ${sources})
  list(FILTER sources EXCLUDE REGEX "/(win32|native|presenter|activex|levelwidgets_doctor)/")
  list(FILTER last INCLUDE REGEX "/(win32|native|presenter|activex|levelwidgets_doctor)/")
  set(total 0)
  foreach(source ${sources})
    file(SIZE ${source} size)
    math(EXPR total "${total} + ${size}")
  endforeach()
  math(EXPR longest "${total} / (${total} / ${longest} + 1)")
  set(joined_sources)
  set(batch)
  set(length 0)
  foreach(source ${sources})
    if(length GREATER_EQUAL longest)
      levelwidgets_join_batch(joined_sources "${batch}")
      set(batch)
      set(length 0)
    endif()
    list(APPEND batch ${source})
    file(SIZE ${source} size)
    math(EXPR length "${length} + ${size}")
  endforeach()
  levelwidgets_join_batch(joined_sources "${batch}")
  levelwidgets_join_batch(joined_sources "${last}")
  set(${result} ${joined_sources} PARENT_SCOPE)
endfunction()

# Appends the source to the list `result` that says what those of `batch` do.
function(levelwidgets_join_batch result batch)
  if(NOT batch)
    return()
  endif()
  list(LENGTH ${result} number)
  set(joined ${PROJECT_BINARY_DIR}/joined/tests_${number}.cpp)
  string(REPLACE ";" "|" in_one "${batch}")
  add_custom_command(OUTPUT ${joined}
    COMMAND ${CMAKE_COMMAND} "-DSOURCES=${in_one}" -DJOINED=${joined} -P ${PROJECT_SOURCE_DIR}/cmake/join_sources.cmake
    DEPENDS ${batch} ${PROJECT_SOURCE_DIR}/cmake/join_sources.cmake VERBATIM)
  list(APPEND ${result} ${joined})
  set(${result} ${${result}} PARENT_SCOPE)
endfunction()

function(levelwidgets_test_program name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
  add_executable(${name} ${arg_SOURCES} ${PROJECT_SOURCE_DIR}/levelwidgets/testing/main.cc)
  set_target_properties(${name} PROPERTIES LEVELWIDGETS_IS_TEST ON)
  target_link_libraries(${name} PRIVATE levelwidgets_options ${arg_LIBRARIES} levelwidgets_gtest)
  # Their run is short and their compilation is not: no optimisation. Without inlining there are more sections than the
  # usual object format of Windows holds, except as Clang writes them.
  target_compile_options(${name} PRIVATE -O0)
  if(WIN32)
    levelwidgets_compile_quickly(${name})
    levelwidgets_link_quickly(${name})
  endif()
  set_source_files_properties(${PROJECT_SOURCE_DIR}/levelwidgets/testing/main.cc PROPERTIES
    COMPILE_DEFINITIONS "LEVELWIDGETS_SOURCE_DIR=\"${PROJECT_SOURCE_DIR}\";LEVELWIDGETS_BUILD_DIR=\"${PROJECT_BINARY_DIR}\"")
  target_precompile_headers(${name} PRIVATE <gmock/gmock.h> <gtest/gtest.h> <algorithm> <array>
    <cmath> <functional> <map> <memory> <optional> <string> <string_view> <variant> <vector>)
endfunction()

# One test program of all *_test.cpp files, and for quick turns one per folder (levelwidgets_frame_tests),
# which is built only when asked for. Some load the component library.
function(levelwidgets_add_tests)
  set(all_sources)
  get_property(names GLOBAL PROPERTY LEVELWIDGETS_NAMES)
  foreach(name ${names})
    get_property(sources GLOBAL PROPERTY LEVELWIDGETS_${name}_TESTS)
    list(APPEND all_sources ${sources})
    list(APPEND libraries levelwidgets_${name})
    if(sources)
      set(used levelwidgets_${name})
      get_property(test_depends GLOBAL PROPERTY LEVELWIDGETS_${name}_TEST_DEPENDS)
      foreach(other testing ${test_depends})
        if(TARGET levelwidgets_${other})
          list(APPEND used levelwidgets_${other})
        endif()
      endforeach()
      levelwidgets_test_program(levelwidgets_${name}_tests SOURCES ${sources} LIBRARIES ${used})
      set_target_properties(levelwidgets_${name}_tests PROPERTIES EXCLUDE_FROM_ALL ON)
      if(levelwidgets_component_testing IN_LIST used)
        add_dependencies(levelwidgets_${name}_tests levelwidgets_component)
      endif()
    endif()
  endforeach()
  if(LEVELWIDGETS_JOIN_SOURCES)
    levelwidgets_join_tests("${all_sources}" all_sources)
  endif()
  levelwidgets_test_program(levelwidgets_tests SOURCES ${all_sources} LIBRARIES ${libraries})
  if(TARGET levelwidgets_component)
    add_dependencies(levelwidgets_tests levelwidgets_component)
  endif()
endfunction()

# A program of each *_fuzz.cpp: bin/form_file_fuzz NEW_FOLDER levelwidgets/host/form_file/form_file_corpus
function(levelwidgets_add_fuzzers)
  get_property(names GLOBAL PROPERTY LEVELWIDGETS_NAMES)
  foreach(name ${names})
    get_property(fuzzers GLOBAL PROPERTY LEVELWIDGETS_${name}_FUZZERS)
    get_property(libraries GLOBAL PROPERTY LEVELWIDGETS_${name}_FUZZ_LIBRARIES)
    foreach(source ${fuzzers})
      get_filename_component(program ${source} NAME_WE)
      add_executable(${program} ${source})
      target_link_libraries(${program} PRIVATE ${libraries})
      target_link_options(${program} PRIVATE -fsanitize=fuzzer)
    endforeach()
  endforeach()
endfunction()

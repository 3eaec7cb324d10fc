# Helpers for the project's targets: one place for warnings, sanitizers and the shape of a test.

# Units of one folder are compiled together, a batch at a time: headers are most of what a unit
# costs. So names of a folder's files differ even inside their anonymous namespaces. Off, each file
# is a unit of its own, as the linter reads it and as one likes it while working in one file.
option(FENALTO_UNITY "Compile the units of a folder together" ON)
set(FENALTO_UNITY_BATCH 8 CACHE STRING "How many units are compiled together")

add_library(fenalto_warnings INTERFACE)
target_compile_options(
  fenalto_warnings
  INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
            -Woverloaded-virtual -Wold-style-cast -Wimplicit-fallthrough -Werror
            # g++ 12 sees overlaps and overflows in additions of texts that have none.
            -Wno-restrict -Wno-stringop-overflow
            # A class of a .cpp file may hold what that file keeps to itself: compiled together with
            # its neighbours, the file isn't the main one any more, and the compiler would complain.
            -Wno-subobject-linkage
            # Programs like libraries, so that both use the same precompiled headers.
            -fPIC
            # What ccache wants, to keep units that use precompiled headers.
            -fpch-preprocess)

if(FENALTO_SANITIZE)
  # g++ 12 sees uninitialised optionals and variants in instrumented code that has none.
  target_compile_options(fenalto_warnings INTERFACE -Wno-maybe-uninitialized)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# fenalto_headers(NAME LINKS lib ... HEADERS <a> ...): a set of headers compiled once, for all targets
# that name it in fenalto_common.
function(fenalto_headers name)
  cmake_parse_arguments(ARG "" "" "LINKS;HEADERS" ${ARGN})
  set(unita "${CMAKE_BINARY_DIR}/${name}.cpp")
  file(CONFIGURE OUTPUT "${unita}" CONTENT "")
  add_library(${name} OBJECT "${unita}")
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} fenalto_warnings)
  target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
endfunction()

set(HEADERS_STD
    <algorithm>
    <array>
    <cstdint>
    <filesystem>
    <functional>
    <map>
    <memory>
    <optional>
    <set>
    <span>
    <string>
    <string_view>
    <utility>
    <variant>
    <vector>)
set(HEADERS_QT
    <QApplication>
    <QBoxLayout>
    <QGridLayout>
    <QLabel>
    <QLineEdit>
    <QPushButton>
    <QString>
    <QTableView>
    <QWidget>)
fenalto_headers(fenalto_headers_std HEADERS ${HEADERS_STD})
fenalto_headers(fenalto_headers_qt LINKS Qt6::Widgets HEADERS ${HEADERS_STD} ${HEADERS_QT})
target_compile_definitions(fenalto_headers_qt PRIVATE QT_NO_CAST_FROM_ASCII)

function(fenalto_unity name)
  if(FENALTO_UNITY)
    set_target_properties(${name} PROPERTIES UNITY_BUILD ON
                                             UNITY_BUILD_BATCH_SIZE ${FENALTO_UNITY_BATCH})
  endif()
endfunction()

# What every target of the project has, whatever it is made of: its units compiled together, with
# the headers of `headers` (a target of fenalto_headers) ready.
function(fenalto_common name headers)
  fenalto_unity(${name})
  target_precompile_headers(${name} REUSE_FROM ${headers})
endfunction()

# fenalto_library(NAME SOURCES a.cpp ... LINKS lib ...): a static library of the program. Its
# headers are included by their path below src/ ("core/values/Importo.h"). With QT it speaks to the
# toolkit.
function(fenalto_library name)
  cmake_parse_arguments(ARG "QT" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}/src")
  target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE fenalto_warnings)
  set_property(GLOBAL APPEND PROPERTY FENALTO_LIBRARIES ${name})
  if(ARG_QT)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_compile_definitions(${name} PRIVATE QT_NO_CAST_FROM_ASCII)
    fenalto_common(${name} fenalto_headers_qt)
  else()
    fenalto_common(${name} fenalto_headers_std)
  endif()
endfunction()

# fenalto_group(NAME lib ...): one name for the folders of a room that stand on top.
function(fenalto_group name)
  add_library(${name} INTERFACE)
  target_link_libraries(${name} INTERFACE ${ARGN})
endfunction()

# Headers as tests include them ("ledger/DittaDiProva.h"), and where the data stand.
function(fenalto_of_tests name)
  target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}/src" "${CMAKE_SOURCE_DIR}/tests")
  target_compile_definitions(${name} PRIVATE FENALTO_DATA="${CMAKE_SOURCE_DIR}/data"
                                             FENALTO_SHARED_TESTS="${CMAKE_SOURCE_DIR}/tests")
endfunction()

# fenalto_test_helpers(NAME SOURCES a.cpp ... LINKS lib ...): what several tests share, compiled once.
function(fenalto_test_helpers name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  fenalto_of_tests(${name})
  target_link_libraries(${name} PUBLIC ${ARG_LINKS} GTest::gmock PRIVATE fenalto_warnings)
  fenalto_common(${name} fenalto_headers_test)
endfunction()

# fenalto_test(NAME SOURCES a.cpp ... LINKS lib ... [TIMEOUT s] [QT] [ROOM]): a GoogleTest program,
# one ctest. With QT it speaks to the toolkit. With ROOM its tests run in fenalto_rooms_test, linked
# with the whole program; alone it is built by whoever works in the room and asks for it.
function(fenalto_test name)
  cmake_parse_arguments(ARG "QT;ROOM" "TIMEOUT" "SOURCES;LINKS" ${ARGN})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 120)
  endif()
  add_executable(${name} ${ARG_SOURCES})
  fenalto_of_tests(${name})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} fenalto_warnings GTest::gtest GTest::gmock
                                        GTest::gtest_main)
  if(ARG_QT)
    # Qt's test library defines the target's own folders as macros, so no other target's headers fit.
    fenalto_unity(${name})
    target_precompile_headers(${name} PRIVATE ${HEADERS_STD} ${HEADERS_QT} ${HEADERS_TEST})
  else()
    fenalto_common(${name} fenalto_headers_test)
  endif()
  if(ARG_ROOM)
    set_target_properties(${name} PROPERTIES EXCLUDE_FROM_ALL ON)
    set_property(GLOBAL APPEND PROPERTY FENALTO_ROOM_TESTS ${name})
    set_property(GLOBAL APPEND PROPERTY FENALTO_ROOM_LINKS ${ARG_LINKS})
    return()
  endif()
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT ${ARG_TIMEOUT})
endfunction()

# fenalto_rooms_test(NAME SHARDS n TIMEOUT s): the tests of all rooms in one program that holds every
# object of the program, as the linker puts it together: a room that is right alone and wrong beside
# another one is found out. `n` ctests share the tests out.
function(fenalto_rooms_test name)
  cmake_parse_arguments(ARG "" "SHARDS;TIMEOUT" "" ${ARGN})
  get_property(libraries GLOBAL PROPERTY FENALTO_LIBRARIES)
  get_property(tests GLOBAL PROPERTY FENALTO_ROOM_TESTS)
  get_property(links GLOBAL PROPERTY FENALTO_ROOM_LINKS)
  list(REMOVE_DUPLICATES links)
  list(REMOVE_ITEM libraries fenalto_runner)
  list(TRANSFORM libraries REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>" OUTPUT_VARIABLE objects)
  list(TRANSFORM tests REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>")
  add_executable(${name} ${objects} ${tests})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_link_libraries(${name} PRIVATE ${libraries} ${links} GTest::gtest GTest::gmock
                                        GTest::gtest_main)
  math(EXPR last "${ARG_SHARDS} - 1")
  foreach(shard RANGE ${last})
    add_test(NAME rooms_${shard} COMMAND ${name})
    set_tests_properties(
      rooms_${shard}
      PROPERTIES TIMEOUT ${ARG_TIMEOUT} ENVIRONMENT
                 "GTEST_TOTAL_SHARDS=${ARG_SHARDS};GTEST_SHARD_INDEX=${shard}")
  endforeach()
endfunction()

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
            -Wno-restrict -Wno-stringop-overflow)

if(FENALTO_SANITIZE)
  # g++ 12 sees uninitialised optionals and variants in instrumented code that has none.
  target_compile_options(fenalto_warnings INTERFACE -Wno-maybe-uninitialized)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# What every target of the project has, whatever it is made of.
function(fenalto_common name)
  if(FENALTO_UNITY)
    set_target_properties(${name} PROPERTIES UNITY_BUILD ON
                                             UNITY_BUILD_BATCH_SIZE ${FENALTO_UNITY_BATCH})
  endif()
endfunction()

# fenalto_library(NAME SOURCES a.cpp ... LINKS lib ...): a static library of the program. Its
# headers are included by their path below src/ ("core/values/Importo.h").
function(fenalto_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}/src")
  target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE fenalto_warnings)
  fenalto_common(${name})
endfunction()

# fenalto_group(NAME lib ...): one name for the folders of a room that stand on top.
function(fenalto_group name)
  add_library(${name} INTERFACE)
  target_link_libraries(${name} INTERFACE ${ARGN})
endfunction()

# fenalto_qt(NAME): a library that speaks to the toolkit.
function(fenalto_qt name)
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_compile_definitions(${name} PRIVATE QT_NO_CAST_FROM_ASCII)
  target_precompile_headers(${name} PRIVATE <QWidget> <QString> <QLineEdit> <QTableView> <QLabel>
                            <string> <vector> <memory> <functional>)
endfunction()

# fenalto_test(NAME SOURCES a.cpp ... LINKS lib ... [TIMEOUT s]): a GoogleTest program, one ctest.
function(fenalto_test name)
  cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LINKS" ${ARGN})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 120)
  endif()
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/src" "${CMAKE_SOURCE_DIR}/tests")
  target_compile_definitions(${name} PRIVATE FENALTO_DATA="${CMAKE_SOURCE_DIR}/data"
                                             FENALTO_SHARED_TESTS="${CMAKE_SOURCE_DIR}/tests")
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} fenalto_warnings GTest::gtest GTest::gmock
                                        GTest::gtest_main)
  fenalto_common(${name})
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT ${ARG_TIMEOUT})
endfunction()

# The forms in which this project declares its targets:
#
#   orlo_library(link QT SOURCES clock.h telegram.h telegram.cpp USES Qt6::Core Qt6::SerialPort)
#   orlo_executable(orlodesk QT SOURCES main.cpp USES orlo::app)
#   orlo_module(orlodesk-componente SOURCES exports.cpp USES orlo::simulator_component)
#   orlo_test(link_telegram_test SOURCES telegram_test.cpp USES orlo::link)
#
# QT turns on moc and uic. Includes are written from the root of the repository.

add_library(orlo_options INTERFACE)
target_compile_features(orlo_options INTERFACE cxx_std_20)
target_compile_options(orlo_options INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wformat=2 -Wundef
  $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wlogical-op>)
target_compile_definitions(orlo_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_CONTEXTLESS_CONNECT
  $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)
set(CMAKE_CXX_EXTENSIONS OFF)

function(_orlo_target target)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "QT" "" "SOURCES;USES")
  target_sources(${target} PRIVATE ${ARG_SOURCES})
  target_link_libraries(${target} PRIVATE orlo_options)
  if(ARG_QT)
    set_target_properties(${target} PROPERTIES AUTOMOC ON AUTOUIC ON)
  endif()
endfunction()

function(orlo_library name)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "QT" "" "SOURCES;USES")
  set(target orlo_${name})
  add_library(${target} STATIC)
  add_library(orlo::${name} ALIAS ${target})
  _orlo_target(${target} ${ARGN})
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${target} PUBLIC ${ARG_USES})
  if(ARG_QT)
    # The form classes of a library are part of its headers.
    target_include_directories(${target} PUBLIC ${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/include)
  endif()
endfunction()

function(orlo_executable name)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "QT" "" "SOURCES;USES")
  add_executable(${name})
  _orlo_target(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE ${ARG_USES})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
endfunction()

# A library that is loaded at run time, lib<name>.so beside the executables. It shows nothing but
# what is exported by name.
function(orlo_module name)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "SOURCES;USES")
  add_library(${name} MODULE)
  _orlo_target(${name} SOURCES ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_USES})
  target_link_options(${name} PRIVATE -Wl,--exclude-libs,ALL)
  # A symbol that is unique in the process would keep the library loaded for ever.
  target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
  set_target_properties(${name} PROPERTIES
    CXX_VISIBILITY_PRESET hidden
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
endfunction()

function(orlo_test name)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "QT" "" "SOURCES;USES")
  add_executable(${name})
  _orlo_target(${name} ${ARGN})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE ${ARG_USES} GTest::gmock)
  target_compile_definitions(${name} PRIVATE ORLO_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data")
  if(ARG_QT)
    target_link_libraries(${name} PRIVATE orlo_test_main_qt)
  else()
    target_link_libraries(${name} PRIVATE GTest::gmock_main)
  endif()
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 240 ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()

# vantrel_room(<name> SOURCES <file>... [PUBLIC <target>...] [PRIVATE <target>...])
#
# One room of the house: a static library `vantrel_<name>` of the sources in the current folder,
# whose headers are seen as <name>/Header.h by exactly those targets that link it. Each room has an
# include root of its own, so a header of a room that is not linked is not found.
function(vantrel_room name)
  cmake_parse_arguments(PARSE_ARGV 1 room "" "" "SOURCES;PUBLIC;PRIVATE")
  string(REPLACE "/" "_" target "vantrel_${name}")
  add_library(${target} STATIC ${room_SOURCES})
  set(root "${PROJECT_BINARY_DIR}/rooms/${target}")
  get_filename_component(parent "${root}/${name}" DIRECTORY)
  file(MAKE_DIRECTORY "${parent}")
  file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}" "${root}/${name}" SYMBOLIC)
  target_include_directories(${target} INTERFACE "${root}")
  target_link_libraries(${target}
    PUBLIC ${room_PUBLIC}
    PRIVATE ${room_PRIVATE} vantrel_warnings)
endfunction()

# vantrel_test(<room> SOURCES <file>... [LINK <target>...] [OWN_MAIN])
#
# The tests of one room: a GoogleTest program `test_<room>`, each of its tests an entry of CTest.
# With OWN_MAIN the sources bring a main() of their own (one that makes an application object, say).
function(vantrel_test name)
  cmake_parse_arguments(PARSE_ARGV 1 test "OWN_MAIN" "" "SOURCES;LINK")
  string(REPLACE "/" "_" target "test_${name}")
  add_executable(${target} ${test_SOURCES})
  target_link_libraries(${target} PRIVATE ${test_LINK} vantrel_warnings
    $<IF:$<BOOL:${test_OWN_MAIN}>,GTest::gmock,GTest::gmock_main>)
  gtest_discover_tests(${target} DISCOVERY_MODE PRE_TEST TEST_PREFIX "${name}: "
    PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;TZ=UTC;LC_ALL=C.UTF-8")
endfunction()

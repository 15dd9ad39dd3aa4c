# ubx_add_test_program(NAME SOURCE... [LIBS LIBRARY...])
#
# Builds one program of tests and tells CTest of every test in it, as "folder/Suite.Test".
#
#   ubx_add_test_program(board_test ChipEnableTest.cpp InventoryTest.cpp LIBS ubxcontrol ubxsimulatedplatform)
#
# The program has its main() already. It moves into a private sandbox (own /dev, /var/log, /tmp) and then runs the tests,
# so each may use the fixed paths of the library as it likes; CTest starts every test as a process of its own, many at a
# time. What a test may include: gtest/gtest.h, and from tests/support Bytes.h, CapturedOutput.h, ChildProcess.h, Files.h,
# FlushLog.h and TestClock.h, and "sandbox/Sandbox.h" for the link to the receiver.

include(GoogleTest)

function(ubx_add_test_program name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBS")
  add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
  ubx_compiler_settings(${name})
  ubx_compile_quickly(${name})
  target_link_libraries(${name} PRIVATE ubxtestsupport ${arg_LIBS})

  file(RELATIVE_PATH folder "${PROJECT_SOURCE_DIR}/tests" "${CMAKE_CURRENT_SOURCE_DIR}")
  gtest_discover_tests(${name}
    DISCOVERY_MODE PRE_TEST
    NO_PRETTY_VALUES
    DISCOVERY_TIMEOUT 60
    TEST_PREFIX "${folder}/"
    PROPERTIES TIMEOUT 60)
endfunction()

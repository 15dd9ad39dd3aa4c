# Builds for a device: with its platform library named, and with every way of naming it wrong.
#
# cmake -DSOURCE=checkout -DBUILD=scratch -DLIBRARY=file -DCOMPILER=file -DFLAGS=... -P check.cmake

set(include_dirs "${SOURCE}/tests/platform/device/include")

function(configure source build)
  file(REMOVE_RECURSE "${build}")
  execute_process(
    COMMAND "${CMAKE_COMMAND}" -S "${source}" -B "${build}" -G Ninja
      "-DCMAKE_CXX_COMPILER=${COMPILER}" "-DCMAKE_CXX_FLAGS=${FLAGS}" "-DSOURCE=${SOURCE}" --no-warn-unused-cli ${ARGN}
    RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  string(REGEX REPLACE "[ \n]+" " " said "${output} ${errors}")
  set(status "${status}" PARENT_SCOPE)
  set(said "${said}" PARENT_SCOPE)
endfunction()

function(expect_refusal message)
  configure("${SOURCE}/tests/platform/device" "${BUILD}/refused" ${ARGN})
  string(FIND "${said}" "${message}" place)
  if(status EQUAL 0 OR place EQUAL -1)
    message(FATAL_ERROR "expected a refusal with \"${message}\", but status ${status}:\n${said}")
  endif()
endfunction()

expect_refusal("UBXCONTROL_PLATFORM is 'toaster': it must be 'simulated'" -DUBXCONTROL_PLATFORM=toaster)
expect_refusal("-DUBXCONTROL_PLATFORM_INCLUDE_DIRS=..."
  -DUBXCONTROL_PLATFORM=device "-DUBXCONTROL_PLATFORM_LIBRARIES=${LIBRARY}")
expect_refusal("-DUBXCONTROL_PLATFORM_LIBRARIES=..."
  -DUBXCONTROL_PLATFORM=device "-DUBXCONTROL_PLATFORM_INCLUDE_DIRS=${include_dirs}")

expect_refusal("-DUBXCONTROL_PLATFORM_PREFIX=..." -DUBXCONTROL_PLATFORM=device)

# As a device's development files lie: the headers a directory deeper, one library among others.
set(prefix "${BUILD}/prefix")
file(REMOVE_RECURSE "${prefix}")
file(MAKE_DIRECTORY "${prefix}/include" "${prefix}/lib")
set(by_prefix -DUBXCONTROL_PLATFORM=device "-DUBXCONTROL_PLATFORM_PREFIX=${prefix}")
expect_refusal("There is no GDBusSystemInventoryClient.h in or below ${prefix}/include" ${by_prefix})
file(COPY "${include_dirs}/" DESTINATION "${prefix}/include/device")
file(WRITE "${prefix}/lib/libunrelated.so" "no library at all")
expect_refusal(
  "defines GDBusSystemInventoryClient;GDBusModuleResourcesClient;I2CDev;SysfsUtil. If they are elsewhere"
  ${by_prefix})
file(COPY "${LIBRARY}" DESTINATION "${prefix}/lib")

set(device -DUBXCONTROL_PLATFORM=device "-DUBXCONTROL_PLATFORM_INCLUDE_DIRS=${include_dirs}"
  "-DUBXCONTROL_PLATFORM_LIBRARIES=${LIBRARY}")

configure("${SOURCE}" "${BUILD}/whole" ${device})
if(NOT status EQUAL 0)
  message(FATAL_ERROR "the project can't be configured for a device:\n${said}")
endif()

function(expect_probe_on_device)
  configure("${SOURCE}/tests/platform/device" "${BUILD}/probe" ${ARGN})
  execute_process(COMMAND "${CMAKE_COMMAND}" --build "${BUILD}/probe" OUTPUT_VARIABLE said ERROR_VARIABLE said
    RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "the board code can't be built for a device:\n${said}")
  endif()

  set(expected "module 1\nmodule 1\nhand-made hand-made-spi\nmodule 1\nbus /dev/hand-made-bus\nopen 21\n")
  string(APPEND expected "write 06 f0 d0\nwrite 02 f0 f0\ngpio 116 1\n")
  execute_process(COMMAND "${BUILD}/probe/probe" OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  if(NOT output STREQUAL expected)
    message(FATAL_ERROR "expected:\n${expected}but got:\n${output}${errors}")
  endif()
endfunction()

expect_probe_on_device(${device})
expect_probe_on_device(${by_prefix})

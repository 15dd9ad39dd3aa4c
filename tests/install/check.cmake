# Installs the library, moves what was installed, and has a caller compiled against it with CMake and with pkg-config.

set(installed "${SCRATCH}/moved")
file(REMOVE_RECURSE "${SCRATCH}")
file(MAKE_DIRECTORY "${SCRATCH}")

function(run)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE said ERROR_VARIABLE said RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    string(REPLACE ";" " " command "${ARGN}")
    message(FATAL_ERROR "${command} ended with ${status}:\n${said}")
  endif()
  set(said "${said}" PARENT_SCOPE)
endfunction()

foreach(component libubxcontrol1 libubxcontrol-dev)
  run("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${SCRATCH}/first" --component ${component})
endforeach()
file(RENAME "${SCRATCH}/first" "${installed}")

file(GLOB expected RELATIVE "${HEADERS}" "${HEADERS}/*.h")
file(GLOB_RECURSE headers RELATIVE "${installed}/include/ubxcontrol" "${installed}/include/*")
if(NOT headers STREQUAL expected)
  message(FATAL_ERROR "installed headers: ${headers}\nbut the library has: ${expected}")
endif()

# No receiver in the sandbox: nothing can be written, and what is asked for is cleared.
function(expect_to_run caller)
  execute_process(COMMAND ${EMULATOR} "${SANDBOX}" --keep "${SCRATCH}" ${caller}
    OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)
  if(status EQUAL 77 AND NOT "$ENV{CI}" STREQUAL "true")
    message(STATUS "the callers were compiled but not run: ${errors}")
  elseif(NOT status EQUAL 8 OR NOT output STREQUAL "status 8, 0 dBHz\n")
    message(FATAL_ERROR "${caller} ended with ${status}:\n${output}${errors}")
  endif()
endfunction()

set(toolchain "-DCMAKE_CXX_COMPILER=${COMPILER}")
if(TOOLCHAIN)
  set(toolchain "-DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN}")
endif()
run("${CMAKE_COMMAND}" -S "${CALLER}" -B "${SCRATCH}/with-cmake" -G Ninja ${toolchain} "-DCMAKE_CXX_FLAGS=${FLAGS}"
  "-Dubxcontrol_DIR=${installed}/${LIBDIR}/cmake/ubxcontrol")
run("${CMAKE_COMMAND}" --build "${SCRATCH}/with-cmake")
expect_to_run("${SCRATCH}/with-cmake/caller")

set(ENV{PKG_CONFIG_PATH} "${installed}/${LIBDIR}/pkgconfig")
run(pkg-config --cflags --libs ubxcontrol)
separate_arguments(from_pkg_config UNIX_COMMAND "${said}")
separate_arguments(flags UNIX_COMMAND "${FLAGS}")
run("${COMPILER}" -std=c++17 ${flags} "${CALLER}/caller.cpp" -o "${SCRATCH}/with-pkg-config" ${from_pkg_config})
set(ENV{LD_LIBRARY_PATH} "${installed}/${LIBDIR}:$ENV{LD_LIBRARY_PATH}")
expect_to_run("${SCRATCH}/with-pkg-config")

# One place for what every target of the project is compiled with.
#
# ubx_compiler_settings(TARGET): C++17, warnings as errors, nothing exported unless marked, hardened.

include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

# Hardened: scripts/test-hardening looks for each of these in what was built. The checks of _FORTIFY_SOURCE need an
# optimised build, and hide from a sanitizer what it would see itself.
set(UBX_HARDENED_COMPILE_OPTIONS -fstack-protector-strong)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  list(APPEND UBX_HARDENED_COMPILE_OPTIONS -fstack-clash-protection)
endif()
if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  list(APPEND UBX_HARDENED_COMPILE_OPTIONS
    "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
endif()
set(UBX_HARDENED_LINK_OPTIONS "LINKER:-z,relro" "LINKER:-z,now" "LINKER:-z,noexecstack")

function(ubx_compiler_settings target)
  set_target_properties(${target} PROPERTIES
    CXX_STANDARD 17
    CXX_STANDARD_REQUIRED ON
    CXX_EXTENSIONS OFF
    POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Werror
    ${UBX_HARDENED_COMPILE_OPTIONS})
  get_target_property(type ${target} TYPE)
  if(NOT type MATCHES "STATIC_LIBRARY|OBJECT_LIBRARY")
    target_link_options(${target} PRIVATE ${UBX_HARDENED_LINK_OPTIONS})
  endif()
endfunction()

# For code that compiles longer than it runs: tests. What they test keeps the optimisation of the build.
function(ubx_compile_quickly target)
  target_compile_options(${target} PRIVATE -O0 -g1 -U_FORTIFY_SOURCE)
endfunction()

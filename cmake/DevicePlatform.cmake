# ubx_find_device_platform(TARGET)
#
# Makes the interface library TARGET of the device's own platform headers and libraries. Either
#
#   UBXCONTROL_PLATFORM_PREFIX        the directory below which they are installed, a system root's /usr for example;
#                                     its include and lib directories are searched for what defines the classes
#
# or, where that does not find them, both of these lists
#
#   UBXCONTROL_PLATFORM_INCLUDE_DIRS  where the headers are
#   UBXCONTROL_PLATFORM_LIBRARIES     what to link, names or full paths
#
# Each list that is given goes before what the prefix has.

set(UBXCONTROL_PLATFORM_PREFIX "" CACHE PATH "Where the device's platform headers and libraries are installed")
set(UBXCONTROL_PLATFORM_INCLUDE_DIRS "" CACHE STRING "Where the headers of the device's platform libraries are")
set(UBXCONTROL_PLATFORM_LIBRARIES "" CACHE STRING "The device's platform libraries")

# Record.h comes with the clients' headers, wherever the device keeps it.
set(_ubx_device_classes GDBusSystemInventoryClient GDBusModuleResourcesClient I2CDev SysfsUtil)

function(_ubx_find_headers result)
  set(directories "")
  foreach(class ${_ubx_device_classes})
    file(GLOB_RECURSE headers "${UBXCONTROL_PLATFORM_PREFIX}/include/${class}.h")
    if(NOT headers)
      message(FATAL_ERROR
        "There is no ${class}.h in or below ${UBXCONTROL_PLATFORM_PREFIX}/include, the include directory of "
        "UBXCONTROL_PLATFORM_PREFIX. If the header is elsewhere, say where with -DUBXCONTROL_PLATFORM_INCLUDE_DIRS=...")
    endif()
    list(GET headers 0 header)
    get_filename_component(directory "${header}" DIRECTORY)
    list(APPEND directories "${directory}")
  endforeach()
  list(REMOVE_DUPLICATES directories)
  set(${result} "${directories}" PARENT_SCOPE)
endfunction()

# The names of the device's libraries are the device's affair: they are known by the classes that they define.
function(_ubx_find_libraries result)
  set(missing ${_ubx_device_classes})
  set(found "")
  set(prefix "${UBXCONTROL_PLATFORM_PREFIX}")
  file(GLOB candidates
    "${prefix}/lib/lib*.so" "${prefix}/lib64/lib*.so" "${prefix}/lib/${CMAKE_LIBRARY_ARCHITECTURE}/lib*.so")
  foreach(library ${candidates})
    execute_process(COMMAND "${CMAKE_NM}" -D --defined-only "${library}" OUTPUT_VARIABLE symbols ERROR_QUIET)
    foreach(class ${missing})
      string(LENGTH ${class} length)
      if(symbols MATCHES "_ZNK?${length}${class}")
        list(REMOVE_ITEM missing ${class})
        list(APPEND found "${library}")
      endif()
    endforeach()
  endforeach()
  if(missing)
    message(FATAL_ERROR
      "No shared library in ${prefix}/lib, ${prefix}/lib64 or ${prefix}/lib/${CMAKE_LIBRARY_ARCHITECTURE} defines "
      "${missing}. If they are elsewhere, name the libraries with -DUBXCONTROL_PLATFORM_LIBRARIES=...")
  endif()
  list(REMOVE_DUPLICATES found)
  set(${result} "${found}" PARENT_SCOPE)
endfunction()

function(ubx_find_device_platform target)
  set(include_dirs "${UBXCONTROL_PLATFORM_INCLUDE_DIRS}")
  set(libraries "${UBXCONTROL_PLATFORM_LIBRARIES}")
  if(NOT UBXCONTROL_PLATFORM_PREFIX AND (NOT include_dirs OR NOT libraries))
    message(FATAL_ERROR
      "UBXCONTROL_PLATFORM is 'device': say where the device's platform headers and libraries are with "
      "-DUBXCONTROL_PLATFORM_PREFIX=..., or with both -DUBXCONTROL_PLATFORM_INCLUDE_DIRS=... and "
      "-DUBXCONTROL_PLATFORM_LIBRARIES=...")
  endif()
  if(NOT include_dirs)
    _ubx_find_headers(include_dirs)
  endif()
  if(NOT libraries)
    _ubx_find_libraries(libraries)
  endif()
  message(STATUS "Platform headers of the device: ${include_dirs}")
  message(STATUS "Platform libraries of the device: ${libraries}")

  add_library(${target} INTERFACE)
  target_include_directories(${target} SYSTEM INTERFACE "$<BUILD_INTERFACE:${include_dirs}>")
  target_link_libraries(${target} INTERFACE ${libraries})
endfunction()

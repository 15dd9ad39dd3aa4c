# The Debian packages that scripts/package makes with CPack. Each component of the installation is one of them.

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL "")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_PACKAGE_CONTACT "ubxcontrol maintainers <maintainers@ubxcontrol.invalid>")
set(CPACK_DEBIAN_PACKAGE_SOURCE ubxcontrol)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "aarch64")
  set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE arm64)
endif()

# What a package needs of Debian is found by looking at its programs; of ours it is said below.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
configure_file("${PROJECT_SOURCE_DIR}/packaging/shlibs.in" "${PROJECT_BINARY_DIR}/packaging/shlibs" @ONLY)

# ubx_package(NAME SECTION SUMMARY DESCRIPTION [DEPENDS ...] [CONTROL file...])
macro(ubx_package name section summary description)
  cmake_parse_arguments(package "" "" "DEPENDS;CONTROL" ${ARGN})
  list(APPEND CPACK_COMPONENTS_ALL ${name})
  string(TOUPPER ${name} upper_name)
  set(CPACK_DEBIAN_${upper_name}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${upper_name}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${upper_name}_PACKAGE_PRIORITY optional)
  set(CPACK_DEBIAN_${upper_name}_DESCRIPTION "${summary}\n${description}")
  string(REPLACE ";" ", " CPACK_DEBIAN_${upper_name}_PACKAGE_DEPENDS "${package_DEPENDS}")
  set(CPACK_DEBIAN_${upper_name}_PACKAGE_CONTROL_EXTRA "${package_CONTROL}")
  set(CPACK_DEBIAN_${upper_name}_PACKAGE_CONTROL_STRICT_PERMISSION ON)

  install(FILES "${PROJECT_SOURCE_DIR}/packaging/copyright"
    DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/doc/${name}" COMPONENT ${name})
  ubx_install_compressed("${PROJECT_SOURCE_DIR}/packaging/changelog"
    "${CMAKE_INSTALL_DATAROOTDIR}/doc/${name}" ${name})
endmacro()

set(platform_simulated "a simulated board")
set(platform_linux "Linux i2c-dev and sysfs GPIOs")
set(platform_device "the device's own services")
set(platform "${platform_${UBXCONTROL_PLATFORM}}")

ubx_package(libubxcontrol1 libs "control of a u-blox timing receiver"
  "Identifies, configures and reads a ZED-F9T or NEO-M8T behind /dev/tty_gps\n\
and switches it on its board. This build reaches the board through\n${platform}."
  CONTROL
    "${PROJECT_SOURCE_DIR}/packaging/postrm"
    "${PROJECT_SOURCE_DIR}/packaging/triggers"
    "${PROJECT_BINARY_DIR}/packaging/shlibs")
install(FILES "${PROJECT_SOURCE_DIR}/packaging/lintian-overrides"
  DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/lintian/overrides" RENAME libubxcontrol1 COMPONENT libubxcontrol1)
ubx_package(libubxcontrol-dev libdevel "control of a u-blox timing receiver (development files)"
  "Headers, CMake package and pkg-config file for programs that use\nlibubxcontrol."
  DEPENDS "libubxcontrol1 (= ${PROJECT_VERSION})")
ubx_package(ubxctl utils "command-line tool for a u-blox timing receiver"
  "Shows and changes the settings of a ZED-F9T or NEO-M8T, watches its\nsurvey-in and satellites, and finds faults."
  DEPENDS "libubxcontrol1 (>= ${PROJECT_VERSION})")
ubx_package(ubxsim utils "simulator of a u-blox timing receiver"
  "Behaves like a ZED-F9T or NEO-M8T behind a pseudo terminal, with every\n\
fault a receiver can have on demand, and runs commands in a sandbox in\n\
which it is the receiver.")

# The changelog's first line names the version that the packages have.
file(STRINGS "${PROJECT_SOURCE_DIR}/packaging/changelog" newest LIMIT_COUNT 1)
if(NOT newest MATCHES "^ubxcontrol \\(${PROJECT_VERSION}\\) ")
  message(FATAL_ERROR
    "packaging/changelog begins with \"${newest}\", but the project's version is ${PROJECT_VERSION}: add an entry")
endif()

include(CPack)

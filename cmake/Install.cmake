# What cmake --install puts where. The components are the packages that the files go into.
#
#   libubxcontrol1      the library, and the platform classes that it runs on
#   libubxcontrol-dev   headers, CMake package and pkg-config file for callers
#   ubxctl, ubxsim      the programs; their own folders install them

include(CMakePackageConfigHelpers)

install(TARGETS ubxcontrol EXPORT ubxcontrol
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    COMPONENT libubxcontrol1
    NAMELINK_COMPONENT libubxcontrol-dev)

# Together with the library, which can't be loaded without it. A device has its own libraries already.
if(NOT UBXCONTROL_PLATFORM STREQUAL "device")
  install(TARGETS ubxplatform EXPORT ubxcontrol
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT libubxcontrol1 NAMELINK_SKIP)
endif()

set(header_dir "${CMAKE_INSTALL_INCLUDEDIR}/ubxcontrol")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/" DESTINATION "${header_dir}"
  COMPONENT libubxcontrol-dev FILES_MATCHING PATTERN "*.h")
target_include_directories(ubxcontrol INTERFACE "$<INSTALL_INTERFACE:${header_dir}>")
target_compile_features(ubxcontrol INTERFACE cxx_std_17)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/ubxcontrol")
install(EXPORT ubxcontrol
  FILE ubxcontrolConfig.cmake
  NAMESPACE ubxcontrol::
  DESTINATION "${package_dir}"
  COMPONENT libubxcontrol-dev)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/ubxcontrolConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/ubxcontrolConfigVersion.cmake"
  DESTINATION "${package_dir}"
  COMPONENT libubxcontrol-dev)

# Found from where the file lies, so that an installed tree can be moved.
file(RELATIVE_PATH prefix_from_pc "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
configure_file("${PROJECT_SOURCE_DIR}/cmake/ubxcontrol.pc.in" "${PROJECT_BINARY_DIR}/ubxcontrol.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/ubxcontrol.pc"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
  COMPONENT libubxcontrol-dev)

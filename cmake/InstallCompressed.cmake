# ubx_install_compressed(FILE DESTINATION COMPONENT)
#
# Installs a text as FILE.gz, the form in which manual pages and changelogs are kept. The same text gives the same bytes.

find_program(UBX_GZIP gzip REQUIRED)

function(ubx_install_compressed file destination component)
  get_filename_component(name "${file}" NAME)
  set(directory "${PROJECT_BINARY_DIR}/compressed")
  set(compressed "${directory}/${name}.gz")
  if(NOT TARGET compressed-${name})
    file(MAKE_DIRECTORY "${directory}")
    add_custom_command(OUTPUT "${compressed}"
      COMMAND "${UBX_GZIP}" -9 --no-name --stdout "${file}" > "${compressed}"
      DEPENDS "${file}" VERBATIM)
    add_custom_target(compressed-${name} ALL DEPENDS "${compressed}")
  endif()
  install(FILES "${compressed}" DESTINATION "${destination}" COMPONENT ${component})
endfunction()

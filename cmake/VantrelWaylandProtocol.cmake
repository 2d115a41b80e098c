# vantrel_wayland_protocol(<target> <name>)
#
# A static library of the client's side of a Wayland protocol, from its description <name>.xml in
# the current folder; its header is <name>.h. The warnings that the program is held to are not the
# generator's.
pkg_check_modules(WAYLAND REQUIRED IMPORTED_TARGET wayland-client)
pkg_get_variable(WAYLAND_SCANNER wayland-scanner wayland_scanner)

function(vantrel_wayland_protocol target name)
  set(description "${CMAKE_CURRENT_SOURCE_DIR}/${name}.xml")
  set(generated "${CMAKE_CURRENT_BINARY_DIR}/${name}")
  add_custom_command(OUTPUT "${generated}.h" "${generated}.c"
    COMMAND "${WAYLAND_SCANNER}" --strict client-header "${description}" "${generated}.h"
    COMMAND "${WAYLAND_SCANNER}" --strict private-code "${description}" "${generated}.c"
    DEPENDS "${description}" VERBATIM)
  add_library(${target} STATIC "${generated}.c" "${generated}.h")
  target_include_directories(${target} PUBLIC "${CMAKE_CURRENT_BINARY_DIR}")
  target_link_libraries(${target} PUBLIC PkgConfig::WAYLAND)
endfunction()

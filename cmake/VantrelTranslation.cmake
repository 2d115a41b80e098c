find_program(LRELEASE lrelease HINTS /usr/lib/qt6/bin /usr/lib/qt6/libexec REQUIRED)

# vantrel_translation(<target> <name>)
#
# Compiles translations/<name>.ts into the program that links the target, where it is found as
# :/translations/<name>.qm.
function(vantrel_translation target name)
  set(source "${PROJECT_SOURCE_DIR}/translations/${name}.ts")
  set(folder "${PROJECT_BINARY_DIR}/translations")
  file(MAKE_DIRECTORY "${folder}")
  add_custom_command(OUTPUT "${folder}/${name}.qm"
    COMMAND "${LRELEASE}" -silent "${source}" -qm "${folder}/${name}.qm"
    DEPENDS "${source}" VERBATIM)
  qt_add_resources(${target} "${target}_${name}"
    PREFIX /translations BASE "${folder}" FILES "${folder}/${name}.qm")
endfunction()

# vantrel_qml_module(<room> URI <uri> [USES <uri>...] [QML <file>...] [ART <file>...])
#
# Gives a room its QML module, which may use QtQuick and those named, inside the room's own static library. There is no plugin: the files
# lie at qrc:/qt/qml/<uri>, so the engine needs that import path (Qt adds it by itself from 6.5 on),
# and the C++ types register when the function qml_register_types_<uri with _> is linked in. The
# linker drops an object file of a static library that nobody refers to, so each room has one C++
# source that refers to it; who uses that source has the module.
#
# The module's files are copied to <build>/qml, where qmllint finds the modules of all rooms.
function(vantrel_qml_module name)
  cmake_parse_arguments(PARSE_ARGV 1 module "" "URI" "USES;QML;ART")
  set(target "vantrel_${name}")
  string(REPLACE "." "/" path "${module_URI}")
  qt_add_qml_module(${target}
    URI "${module_URI}"
    VERSION 1.0
    NO_PLUGIN
    DEPENDENCIES QtQuick ${module_USES}
    RESOURCE_PREFIX /qt/qml
    OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/qml/${path}"
    IMPORT_PATH "${PROJECT_BINARY_DIR}/qml"
    QML_FILES ${module_QML}
    RESOURCES ${module_ART})
  # What Qt generates from the QML files is not ours to keep free of warnings.
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "/qmlcache/|qmltyperegistrations")
  set_source_files_properties(${sources} PROPERTIES COMPILE_OPTIONS -w)
  # The generated registration names the headers of the types without their room.
  target_include_directories(${target} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
endfunction()

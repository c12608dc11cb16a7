# Tests that drive the staged program on a virtual display. Every class has a desktop of its own.

include(PythonTests)

# add_desktop_tests(PREFIX TIMEOUT [ABSENT CLASS...] [PATHS FOLDER...]): adds the classes of the current folder but the
# absent ones; the paths are further folders of modules that they import.
function(add_desktop_tests prefix timeout)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "ABSENT;PATHS")
  list(JOIN arg_PATHS ":" paths)
  add_python_tests(${prefix} ${timeout}
    ABSENT ${arg_ABSENT}
    LABELS desktop
    ENVIRONMENT
      "PYTHONPATH=${PROJECT_SOURCE_DIR}/Tools/Driver:${paths}"
      "VEXORA_STAGE=$<TARGET_FILE_DIR:vexora-one-click-installer>"
      "VEXORA_IDENTIFIER=${VEXORA_IDENTIFIER}"
      "VEXORA_SOURCE=${PROJECT_SOURCE_DIR}"
      "VEXORA_BUILD=${CMAKE_BINARY_DIR}"
      "VEXORA_HELP=${VEXORA_TROUBLESHOOTING_URL}")
endfunction()

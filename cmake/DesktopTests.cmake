# Tests that drive the staged program on a virtual display. Every class of a folder's *_test.py is one test of CTest, with
# a desktop of its own.

# add_desktop_tests(PREFIX TIMEOUT [ABSENT CLASS...] [PATHS FOLDER...]): adds the classes of the current folder but the
# absent ones; the paths are further folders of modules that they import.
function(add_desktop_tests prefix timeout)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "ABSENT;PATHS")
  file(GLOB files CONFIGURE_DEPENDS "*_test.py")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${files})
  list(JOIN arg_PATHS ":" paths)
  foreach(file IN LISTS files)
    get_filename_component(module "${file}" NAME_WE)
    file(STRINGS "${file}" classes REGEX "^class [A-Za-z]+Test\\(")
    foreach(class IN LISTS classes)
      string(REGEX REPLACE "^class ([A-Za-z]+)\\(.*" "\\1" class "${class}")
      if(class IN_LIST arg_ABSENT)
        continue()
      endif()
      # Only the system's own interpreter finds the accessibility library.
      add_test(NAME "${prefix}.${class}" WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}"
               COMMAND /usr/bin/python3 -B -W ignore::DeprecationWarning -m unittest -v
                       "${module}.${class}")
      set_tests_properties("${prefix}.${class}" PROPERTIES
        ENVIRONMENT "PYTHONPATH=${PROJECT_SOURCE_DIR}/Tools/Driver:${paths};VEXORA_STAGE=$<TARGET_FILE_DIR:vexora-one-click-installer>;VEXORA_SOURCE=${PROJECT_SOURCE_DIR};VEXORA_BUILD=${CMAKE_BINARY_DIR}"
        LABELS desktop
        TIMEOUT ${timeout})
    endforeach()
  endforeach()
endfunction()

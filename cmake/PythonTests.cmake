# Tests written in Python: every class of the current folder's *_test.py is one test of CTest.

if(NOT APPLE)
  # Only the system's own interpreter finds the accessibility library.
  set(Python3_ROOT_DIR /usr)
  set(Python3_FIND_STRATEGY LOCATION)
endif()
find_package(Python3 COMPONENTS Interpreter REQUIRED)

# add_python_tests(PREFIX TIMEOUT [ABSENT CLASS...] [ENVIRONMENT NAME=VALUE...] [LABELS LABEL...]): adds the classes but
# the absent ones.
function(add_python_tests prefix timeout)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "ABSENT;ENVIRONMENT;LABELS")
  file(GLOB files CONFIGURE_DEPENDS "*_test.py")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${files})
  foreach(file IN LISTS files)
    get_filename_component(module "${file}" NAME_WE)
    file(STRINGS "${file}" classes REGEX "^class [A-Za-z]+Test\\(")
    foreach(class IN LISTS classes)
      string(REGEX REPLACE "^class ([A-Za-z]+)\\(.*" "\\1" class "${class}")
      if(class IN_LIST arg_ABSENT)
        continue()
      endif()
      add_test(NAME "${prefix}.${class}" WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}"
               COMMAND Python3::Interpreter -B -W ignore::DeprecationWarning -m unittest -v
                       "${module}.${class}")
      set_tests_properties("${prefix}.${class}" PROPERTIES
        ENVIRONMENT "${arg_ENVIRONMENT}" LABELS "${arg_LABELS}" TIMEOUT ${timeout})
    endforeach()
  endforeach()
endfunction()

# vexora_add_utf16(SOURCE OUTPUT): at build time turns a UTF-8 text into UTF-16 with a byte-order mark.
#
# The build runs this very file as a script for each text. A source that is not valid UTF-8 fails the build, and the
# output appears under its name only when it is complete.

if(CMAKE_SCRIPT_MODE_FILE)
  set(partial "${OUTPUT}.partial")
  execute_process(COMMAND "${ICONV}" -f UTF-8 -t UTF-16 "${SOURCE}"
                  OUTPUT_FILE "${partial}" RESULT_VARIABLE result)
  file(READ "${partial}" mark LIMIT 2 HEX)
  if(NOT result EQUAL 0 OR NOT mark MATCHES "^(fffe|feff)$")
    file(REMOVE "${partial}" "${OUTPUT}")
    message(FATAL_ERROR "${SOURCE} cannot be turned into UTF-16 with a byte-order mark; is it valid UTF-8?")
  endif()
  file(RENAME "${partial}" "${OUTPUT}")
  return()
endif()

find_program(VEXORA_ICONV iconv REQUIRED)
set(VEXORA_UTF16_SCRIPT "${CMAKE_CURRENT_LIST_FILE}")

function(vexora_add_utf16 source output)
  add_custom_command(
    OUTPUT "${output}"
    COMMAND "${CMAKE_COMMAND}" "-DICONV=${VEXORA_ICONV}" "-DSOURCE=${source}" "-DOUTPUT=${output}"
            -P "${VEXORA_UTF16_SCRIPT}"
    DEPENDS "${source}" "${VEXORA_UTF16_SCRIPT}"
    COMMENT "Converting ${output} to UTF-16"
    VERBATIM)
endfunction()

# Compiles one case of SOURCE with INCLUDE as its only include folder. It must compile when EXPECTED is empty, and
# otherwise fail with an output that matches EXPECTED.

execute_process(
  COMMAND "${COMPILER}" -std=c++20 -Wall -Wextra -Werror=format -fsyntax-only
    "-I${INCLUDE}" "-D${CASE}" "${SOURCE}"
  RESULT_VARIABLE status
  OUTPUT_VARIABLE output
  ERROR_VARIABLE output)

if(EXPECTED STREQUAL "")
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${CASE} must compile, but:\n${output}")
  endif()
elseif(status EQUAL 0)
  message(FATAL_ERROR "${CASE} must not compile, but does.")
elseif(NOT output MATCHES "${EXPECTED}")
  message(FATAL_ERROR "${CASE} fails for another reason than \"${EXPECTED}\":\n${output}")
endif()

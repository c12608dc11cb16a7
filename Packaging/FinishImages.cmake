# CPack runs this on the disk images that it has made, before it hands them over: signs them, so that the program runs
# from where it lies instead of a hidden copy, and has them notarised. An ad hoc signature would not help there.
cmake_policy(VERSION 3.25)

# CPack fails when this script does, but hands the images over all the same: one that is not finished must not exist.
function(run tool image argument)
  execute_process(COMMAND "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/${tool}" "${image}" "${argument}" RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    file(REMOVE "${image}")
    message(FATAL_ERROR "${image} is not finished and was removed.")
  endif()
endfunction()

foreach(image IN LISTS CPACK_PACKAGE_FILES)
  if(image MATCHES "~sample[^/]*$")
    message(WARNING "${image} is marked as a sample; docs/publishing.md tells how to pack for publication.")
  endif()
  if(NOT CPACK_VEXORA_SIGNING_IDENTITY STREQUAL "-")
    run(sign "${image}" "${CPACK_VEXORA_SIGNING_IDENTITY}")
  endif()
  if(NOT CPACK_VEXORA_NOTARY_PROFILE STREQUAL "")
    run(notarize "${image}" "${CPACK_VEXORA_NOTARY_PROFILE}")
  endif()
endforeach()

# CPack runs this after it has copied the stage and before it packs the copy: signs the bundle in it.
cmake_policy(VERSION 3.25)

execute_process(
  COMMAND "${CMAKE_CURRENT_LIST_DIR}/sign"
    "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${CPACK_VEXORA_BUNDLE}" "${CPACK_VEXORA_SIGNING_IDENTITY}"
  RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  # CPack fails when this script does, but makes an image of the copy all the same.
  file(REMOVE_RECURSE "${CPACK_TEMPORARY_INSTALL_DIRECTORY}")
  message(FATAL_ERROR "The bundle could not be signed.")
endif()

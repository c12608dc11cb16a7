# CPack runs this after it has copied the stage and before it packs the copy: signs the bundle in it.
cmake_policy(VERSION 3.25)

execute_process(
  COMMAND "${CMAKE_CURRENT_LIST_DIR}/sign"
    "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${CPACK_VEXORA_BUNDLE}" "${CPACK_VEXORA_SIGNING_IDENTITY}"
  COMMAND_ERROR_IS_FATAL ANY)

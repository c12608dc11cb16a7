# CPack runs this on the tree that it packs: rights and times do not depend on who built it, where and when.

execute_process(COMMAND chmod -R u=rwX,go=rX,g-s "${CPACK_TEMPORARY_INSTALL_DIRECTORY}" COMMAND_ERROR_IS_FATAL ANY)
execute_process(
  COMMAND find "${CPACK_TEMPORARY_INSTALL_DIRECTORY}" -exec touch --no-dereference "--date=@${CPACK_VEXORA_DATE}" {} +
  COMMAND_ERROR_IS_FATAL ANY)

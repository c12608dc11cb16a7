# CPack runs this to pack its tree as an archive that names no user of the building machine.

set(archive "${CPACK_TOPLEVEL_DIRECTORY}/${CPACK_PACKAGE_FILE_NAME}.tar.gz")
cmake_path(GET CPACK_TEMPORARY_DIRECTORY PARENT_PATH parent)
execute_process(
  COMMAND tar --create --gzip --format=gnu --sort=name --owner=0 --group=0 --numeric-owner
          "--file=${archive}" "--directory=${parent}" "${CPACK_PACKAGE_FILE_NAME}"
  COMMAND_ERROR_IS_FATAL ANY)
set(CPACK_EXTERNAL_BUILT_PACKAGES "${archive}")

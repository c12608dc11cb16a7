# What ships: the stage as a whole, as a disk image with the bundle on macOS, otherwise as an archive.
#
# The scripts that CPack runs see variables that start with CPACK_, and no others.

install(DIRECTORY "${VEXORA_STAGE}/" DESTINATION . USE_SOURCE_PERMISSIONS)

set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_BINARY_DIR}")
set(CPACK_PACKAGE_NAME vexora-one-click-installer)
set(CPACK_PACKAGE_VENDOR "Ondrel Vexora")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "The one-click installer of Ondrel Vexora Lumiq")

if(APPLE AND VEXORA_BACKEND STREQUAL "appkit")
  set(CPACK_GENERATOR DragNDrop)
  set(CPACK_PACKAGE_FILE_NAME "${CPACK_PACKAGE_NAME}-${PROJECT_VERSION}")
  string(REGEX REPLACE "\\.app$" "" CPACK_DMG_VOLUME_NAME "${VEXORA_BUNDLE}")
  set(CPACK_DMG_FORMAT UDZO)
  # The program is run where it is, once, and not copied to the applications.
  set(CPACK_DMG_DISABLE_APPLICATIONS_SYMLINK ON)
  set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/SignBundle.cmake")
  set(CPACK_POST_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/FinishImages.cmake")
  set(CPACK_VEXORA_BUNDLE "${VEXORA_BUNDLE}")
  set(CPACK_VEXORA_SIGNING_IDENTITY "${VEXORA_SIGNING_IDENTITY}")
  set(CPACK_VEXORA_NOTARY_PROFILE "${VEXORA_NOTARY_PROFILE}")
else()
  set(CPACK_GENERATOR TGZ)
endif()
include(CPack)

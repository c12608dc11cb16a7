# What ships, all from one staging definition: the stage as a whole. On macOS that is the bundle, packed as a disk image.
# For Linux a system's package and a portable archive add what Linux.cmake names.
#
# The scripts that CPack runs see variables that start with CPACK_, and no others.

set(destination .)
if(VEXORA_BACKEND STREQUAL "qt")
  set(destination lib/vexora-one-click-installer)
endif()
install(DIRECTORY "${VEXORA_STAGE}/" DESTINATION "${destination}" USE_SOURCE_PERMISSIONS COMPONENT program)

set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_BINARY_DIR}")
set(CPACK_PACKAGE_NAME vexora-one-click-installer)
set(CPACK_PACKAGE_VERSION "${VEXORA_PACKAGE_VERSION}")
set(CPACK_PACKAGE_VENDOR "Ondrel Vexora")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "One-click installer of Ondrel Vexora Lumiq")

if(APPLE AND VEXORA_BACKEND STREQUAL "appkit")
  set(CPACK_GENERATOR DragNDrop)
  set(CPACK_PACKAGE_FILE_NAME "${CPACK_PACKAGE_NAME}-${CPACK_PACKAGE_VERSION}")
  string(REGEX REPLACE "\\.app$" "" CPACK_DMG_VOLUME_NAME "${VEXORA_BUNDLE}")
  set(CPACK_DMG_FORMAT UDZO)
  # The program is run where it is, once, and not copied to the applications.
  set(CPACK_DMG_DISABLE_APPLICATIONS_SYMLINK ON)
  set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/SignBundle.cmake")
  set(CPACK_POST_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/FinishImages.cmake")
  set(CPACK_VEXORA_BUNDLE "${VEXORA_BUNDLE}")
  set(CPACK_VEXORA_SIGNING_IDENTITY "${VEXORA_SIGNING_IDENTITY}")
  set(CPACK_VEXORA_NOTARY_PROFILE "${VEXORA_NOTARY_PROFILE}")
elseif(VEXORA_BACKEND STREQUAL "qt")
  include("${CMAKE_CURRENT_LIST_DIR}/Linux.cmake")
else()
  set(CPACK_GENERATOR TGZ)
endif()
include(CPack)

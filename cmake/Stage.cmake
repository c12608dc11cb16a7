# Where the program and its resource directory are staged, which depends on the backend: as a bundle for AppKit, side by
# side for Qt. VEXORA_STAGE as a whole is what ships.
#
# A bundle is no more than a layout of folders, so that the same rules stage it on every system. CMake's own bundles are
# made on macOS only.

set(VEXORA_STAGE "${CMAKE_BINARY_DIR}/stage")
set(VEXORA_BUNDLE "Ondrel Vexora Lumiq Setup.app")

if(VEXORA_BACKEND STREQUAL "appkit")
  set(VEXORA_STAGED_PROGRAM "${VEXORA_STAGE}/${VEXORA_BUNDLE}/Contents/MacOS")
  set(VEXORA_STAGED_RESOURCES "${VEXORA_STAGE}/${VEXORA_BUNDLE}/Contents/Resources")
else()
  set(VEXORA_STAGED_PROGRAM "${VEXORA_STAGE}")
  set(VEXORA_STAGED_RESOURCES "${VEXORA_STAGE}/Resources")
endif()

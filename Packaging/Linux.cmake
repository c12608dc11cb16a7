# What the packages for Linux hold beside the stage, and how CPack makes them: a .deb and a .rpm, which bring what a desktop
# looks for, and a portable archive, which brings a script that starts the program.

execute_process(COMMAND "${CMAKE_CURRENT_LIST_DIR}/source-date" OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE
                COMMAND_ERROR_IS_FATAL ANY)

# Texts, made from the strings files and from CHANGELOG.md.
set(texts "${CMAKE_CURRENT_BINARY_DIR}/texts")
set(templates "${CMAKE_CURRENT_LIST_DIR}/Templates")
set(made "${texts}/${VEXORA_IDENTIFIER}.desktop" "${texts}/${VEXORA_IDENTIFIER}.metainfo.xml"
         "${texts}/${VEXORA_IDENTIFIER}.policy" "${texts}/copyright" "${texts}/changelog.gz"
         "${texts}/vexora-one-click-installer.1.gz" "${texts}/changelog.rpm")
set(sources "${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${PROJECT_SOURCE_DIR}/Resources/Licenses/LA_en.txt")
get_property(languages TARGET vexora_resources PROPERTY VEXORA_LANGUAGES)
foreach(language IN LISTS languages)
  list(APPEND sources "${PROJECT_SOURCE_DIR}/Resources/${language}.lproj/Localizable.strings")
endforeach()
file(GLOB template_files CONFIGURE_DEPENDS "${templates}/*")
add_custom_command(
  OUTPUT ${made}
  COMMAND "${CMAKE_CURRENT_LIST_DIR}/make-texts" "${texts}" "identifier=${VEXORA_IDENTIFIER}"
          "version=${CPACK_PACKAGE_VERSION}" "date=${date}" "homepage=${VEXORA_HOMEPAGE}"
          "help=${VEXORA_TROUBLESHOOTING_URL}" "vendor=${CPACK_PACKAGE_VENDOR}"
          "contact=${VEXORA_CONTACT}" "run_install=${VEXORA_RUN_INSTALL}"
  DEPENDS "${CMAKE_CURRENT_LIST_DIR}/make-texts" ${template_files} ${sources}
  COMMENT "Making the texts of the packages"
  VERBATIM)
add_custom_target(vexora_package_texts ALL DEPENDS ${made})

set(program vexora-one-click-installer)
file(MAKE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/link")
file(CREATE_LINK "../lib/${program}/${program}" "${CMAKE_CURRENT_BINARY_DIR}/link/${program}" SYMBOLIC)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/link/${program}" DESTINATION bin COMPONENT system)
install(FILES "${texts}/${VEXORA_IDENTIFIER}.desktop" DESTINATION share/applications COMPONENT system)
install(FILES "${texts}/${VEXORA_IDENTIFIER}.metainfo.xml" DESTINATION share/metainfo COMPONENT system)
install(FILES "${texts}/${program}.1.gz" DESTINATION share/man/man1 COMPONENT system)
install(FILES "${texts}/copyright" "${texts}/changelog.gz" DESTINATION "share/doc/${program}" COMPONENT system)
if(VEXORA_RUN_INSTALL)
  cmake_path(GET VEXORA_RUN_INSTALL PARENT_PATH VEXORA_RUN_INSTALL_FOLDER)
  configure_file("${CMAKE_CURRENT_LIST_DIR}/run-install.in" "${CMAKE_CURRENT_BINARY_DIR}/run-install" @ONLY)
  install(PROGRAMS "${CMAKE_CURRENT_BINARY_DIR}/run-install" DESTINATION "lib/${program}" COMPONENT system)
  install(FILES "${texts}/${VEXORA_IDENTIFIER}.policy" DESTINATION share/polkit-1/actions COMPONENT system)
endif()
set(icons share/icons/hicolor)
install(FILES "${PROJECT_SOURCE_DIR}/Resources/Artwork/${program}.svg" DESTINATION "${icons}/scalable/apps"
        RENAME "${VEXORA_IDENTIFIER}.svg" COMPONENT system)
foreach(size IN ITEMS 16 32 48 64 128 256 512)
  install(FILES "${PROJECT_SOURCE_DIR}/Resources/Images/${program}-${size}.png"
          DESTINATION "${icons}/${size}x${size}/apps" RENAME "${VEXORA_IDENTIFIER}.png" COMPONENT system)
endforeach()
install(FILES "${templates}/lintian-overrides" DESTINATION share/lintian/overrides RENAME "${program}"
        COMPONENT debian EXCLUDE_FROM_ALL)
install(PROGRAMS "${CMAKE_CURRENT_LIST_DIR}/start" DESTINATION . RENAME "${program}" COMPONENT portable EXCLUDE_FROM_ALL)
install(FILES "${texts}/copyright" DESTINATION . COMPONENT portable EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR External)
if(VEXORA_RUN_INSTALL)
  set(CPACK_GENERATOR DEB RPM)
endif()
set(CPACK_PROJECT_CONFIG_FILE "${CMAKE_CURRENT_LIST_DIR}/Formats.cmake")
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/SettleTree.cmake")
set(CPACK_VEXORA_BUILD "${CMAKE_BINARY_DIR}")
set(CPACK_VEXORA_DATE "${date}")
set(CPACK_MONOLITHIC_INSTALL ON)
set(CPACK_THREADS 1)
set(CPACK_PACKAGE_CONTACT "${VEXORA_CONTACT}")
set(CPACK_PACKAGE_HOMEPAGE_URL "${VEXORA_HOMEPAGE}")
set(CPACK_PACKAGE_DESCRIPTION "\
One window and one button install the Ondrel Vexora Lumiq plug-in for web
browsers for the current user, or replace the copy of the whole system when
the user grants the rights to. The window speaks 57 languages.")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The window's platform is a plug-in, which no dependency of the binary names.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "pkexec, polkitd, qt6-qpa-plugins")
# A file manager that shows a file when asked over D-Bus.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "nautilus | dolphin | nemo | caja | thunar | pcmanfm-qt, \
xdg-utils, qt6-wayland, fonts-noto-core, fonts-noto-cjk")

set(CPACK_RPM_FILE_NAME RPM-DEFAULT)
set(CPACK_RPM_PACKAGE_LICENSE LicenseRef-Proprietary)
set(CPACK_RPM_PACKAGE_DESCRIPTION "${CPACK_PACKAGE_DESCRIPTION}")
set(CPACK_RPM_PACKAGE_RELOCATABLE OFF)
set(CPACK_RPM_PACKAGE_REQUIRES "/usr/bin/pkexec, polkit")
set(CPACK_RPM_CHANGELOG_FILE "${texts}/changelog.rpm")
# Names of packages are Fedora's. The other lines keep the building machine out of the package, and its
# tools from changing the program.
set(CPACK_RPM_SPEC_MORE_DEFINE "\
Packager: ${VEXORA_CONTACT}
Recommends: (nautilus or dolphin or nemo or caja or Thunar or pcmanfm-qt)
Recommends: xdg-utils
Recommends: qt6-qtwayland
Recommends: google-noto-sans-fonts
Recommends: google-noto-sans-cjk-fonts
%define _buildhost localhost
%define use_source_date_epoch_as_buildtime 1
%define clamp_mtime_to_source_date_epoch 1
%define _build_id_links none
%define __os_install_post %{nil}")
set(CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION /usr/share/man /usr/share/man/man1 /usr/share/applications
    /usr/share/metainfo /usr/share/polkit-1 /usr/share/polkit-1/actions /usr/share/icons /usr/share/icons/hicolor)
foreach(size IN ITEMS scalable 16x16 32x32 48x48 64x64 128x128 256x256 512x512)
  list(APPEND CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION "/usr/${icons}/${size}" "/usr/${icons}/${size}/apps")
endforeach()

set(CPACK_EXTERNAL_ENABLE_STAGING ON)
set(CPACK_EXTERNAL_PACKAGE_SCRIPT "${CMAKE_CURRENT_LIST_DIR}/PortableArchive.cmake")
set(CPACK_PACKAGE_FILE_NAME "${CPACK_PACKAGE_NAME}-${CPACK_PACKAGE_VERSION}-${CMAKE_SYSTEM_PROCESSOR}")

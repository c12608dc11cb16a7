# CPack reads this before it makes a package of each kind: which components go into it, and when everything is from.

set(ENV{SOURCE_DATE_EPOCH} "${CPACK_VEXORA_DATE}")
set(DEB system debian)
set(RPM system)
set(External portable)
set(CPACK_INSTALL_CMAKE_PROJECTS)
foreach(part IN ITEMS program ${${CPACK_GENERATOR}})
  list(APPEND CPACK_INSTALL_CMAKE_PROJECTS "${CPACK_VEXORA_BUILD}" "${CPACK_PACKAGE_NAME}" ${part} /)
endforeach()

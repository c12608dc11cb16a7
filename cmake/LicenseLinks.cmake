# vexora_add_license_links(FOLDER CODES...): at build time makes LA_xx in FOLDER a link to LA_en for each code.
#
# The build runs this very file as a script. A link is as old as what it leads to; the links therefore depend on LA_en
# alone, since they would count as older than any other file for ever.

if(CMAKE_SCRIPT_MODE_FILE)
  foreach(code IN LISTS CODES)
    file(CREATE_LINK LA_en "${FOLDER}/LA_${code}" SYMBOLIC)
  endforeach()
  return()
endif()

set(VEXORA_LICENSE_LINKS_SCRIPT "${CMAKE_CURRENT_LIST_FILE}")

function(vexora_add_license_links folder)
  list(TRANSFORM ARGN PREPEND "${folder}/LA_" OUTPUT_VARIABLE links)
  foreach(link IN LISTS links)
    if(NOT IS_SYMLINK "${link}")
      file(REMOVE "${link}") # a text that has been taken away
    endif()
  endforeach()
  add_custom_command(
    OUTPUT ${links}
    COMMAND "${CMAKE_COMMAND}" "-DFOLDER=${folder}" "-DCODES=${ARGN}" -P "${VEXORA_LICENSE_LINKS_SCRIPT}"
    DEPENDS "${folder}/LA_en"
    COMMENT "Linking the licences of languages without a text of their own"
    VERBATIM)
endfunction()

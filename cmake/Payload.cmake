# Packs the plug-in of VEXORA_PAYLOAD, and sets `payload` to the files that are staged: install, unmount, payload.conf, the
# archive and its checksum. Names and version have one source, payload.conf, which install reads as well; the version is
# also written into the plug-in, but not into a bundle of the Mac, whose signature admits no file beside its folder Contents.

set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${VEXORA_PAYLOAD}/payload.conf")
foreach(key IN ITEMS VERSION PLUGIN ARCHIVE)
  # Two lines would be joined by a semicolon.
  file(STRINGS "${VEXORA_PAYLOAD}/payload.conf" ${key} ENCODING UTF-8 REGEX "^${key}=")
  if(NOT ${key} MATCHES "^${key}=[^/;]+$" OR ${key} MATCHES "^${key}=\\.\\.?$")
    message(FATAL_ERROR "${VEXORA_PAYLOAD}/payload.conf must have one line ${key}= with a name without slash and semicolon.")
  endif()
  string(REGEX REPLACE "^${key}=" "" ${key} "${${key}}")
endforeach()
string(REPEAT "[0-9]" 10 ten_digits)
if(NOT VERSION MATCHES "^[0-9]+(\\.[0-9]+)*$" OR VERSION MATCHES "${ten_digits}")
  message(FATAL_ERROR "${VEXORA_PAYLOAD}/payload.conf must name a version of single dots and numbers of up to nine digits, "
                      "but names ${VERSION}.")
endif()
# They become part of what install reads, but not of what is read above.
file(READ "${VEXORA_PAYLOAD}/payload.conf" bytes HEX)
if(bytes MATCHES "^(..)*(0d|09|20)0a")
  message(FATAL_ERROR "${VEXORA_PAYLOAD}/payload.conf has a line that ends in a blank or a carriage return.")
endif()

string(REGEX REPLACE "([][*?])" "[\\1]" pattern "${VEXORA_PAYLOAD}/Plugin/")
file(GLOB_RECURSE plugin_files CONFIGURE_DEPENDS "${pattern}*")
if(NOT plugin_files)
  message(FATAL_ERROR "${VEXORA_PAYLOAD}/Plugin is empty.")
endif()
foreach(file IN LISTS plugin_files)
  if(NOT EXISTS "${file}")
    message(FATAL_ERROR "${file} is a link to nothing, or its name holds a semicolon or a bracket.")
  endif()
endforeach()
set(folder "${CMAKE_CURRENT_BINARY_DIR}/payload")
set(archive "${folder}/${ARCHIVE}")
file(MAKE_DIRECTORY "${folder}")
file(CONFIGURE OUTPUT "${folder}/VERSION" CONTENT "${VERSION}\n" @ONLY)
set(add_version "${CMAKE_COMMAND}" -E copy VERSION "${PLUGIN}/VERSION")
if(EXISTS "${VEXORA_PAYLOAD}/Plugin/Contents")
  set(add_version "${CMAKE_COMMAND}" -E true)
endif()
# A file that is taken away makes no other one newer.
file(CONFIGURE OUTPUT "${folder}/files" CONTENT "${plugin_files}" @ONLY)

set(pack "${CMAKE_COMMAND}" -E tar czf "${archive}" --format=gnutar)
if(NOT APPLE)
  # The same bytes, whoever packs them, where and when.
  set(pack tar --create --gzip --format=gnu --sort=name --owner=0 --group=0 --numeric-owner --mode=u=rwX,go=rX
           --mtime=2000-01-01T00:00Z "--file=${archive}")
endif()
add_custom_command(
  OUTPUT "${archive}" "${archive}.cksum"
  COMMAND "${CMAKE_COMMAND}" -E rm -rf "${PLUGIN}"
  COMMAND cp -R -H "${VEXORA_PAYLOAD}/Plugin" "${PLUGIN}"
  COMMAND ${add_version}
  COMMAND ${pack} "${PLUGIN}"
  COMMAND cksum < "${archive}" > "${archive}.cksum"
  DEPENDS ${plugin_files} "${folder}/files" "${folder}/VERSION"
  WORKING_DIRECTORY "${folder}"
  COMMENT "Packing ${PLUGIN} ${VERSION}"
  VERBATIM)

set(payload "${VEXORA_PAYLOAD}/install" "${VEXORA_PAYLOAD}/unmount" "${VEXORA_PAYLOAD}/payload.conf"
            "${archive}" "${archive}.cksum")

# vexora_info_plist(OUTPUT IDENTIFIER text NAME text VERSION text MINIMUM_SYSTEM text FONTS [folder] LANGUAGES code...):
# writes the Info.plist of the bundle.
#
# The light look of the window is set where the window is made, and for the window alone; the list has no
# NSRequiresAquaSystemAppearance, which would be a second place for it and is meant for a transition. There is no
# NSAppleEventsUsageDescription either: "do shell script" is a command that the process sends to itself.

function(vexora_escape_xml variable)
  string(REPLACE "&" "&amp;" text "${${variable}}")
  string(REPLACE "<" "&lt;" text "${text}")
  string(REPLACE ">" "&gt;" text "${text}")
  set(${variable} "${text}" PARENT_SCOPE)
endfunction()

function(vexora_info_plist output)
  cmake_parse_arguments(PARSE_ARGV 1 given "" "IDENTIFIER;NAME;VERSION;MINIMUM_SYSTEM" "FONTS;LANGUAGES")
  set(identifier "${given_IDENTIFIER}")
  set(name "${given_NAME}")
  set(version "${given_VERSION}")
  set(minimum_system "${given_MINIMUM_SYSTEM}")
  set(fonts "${given_FONTS}")
  foreach(text IN ITEMS identifier name version minimum_system fonts)
    vexora_escape_xml(${text})
  endforeach()

  set(localizations)
  foreach(language IN LISTS given_LANGUAGES)
    vexora_escape_xml(language)
    string(APPEND localizations "\n\t\t<string>${language}</string>")
  endforeach()
  # The key asks the system to load what lies in the folder, which must exist then.
  if(fonts)
    set(fonts "\n\t<key>ATSApplicationFontsPath</key>\n\t<string>${fonts}</string>")
  endif()

  configure_file("${CMAKE_CURRENT_FUNCTION_LIST_DIR}/Info.plist.in" "${output}" @ONLY)
endfunction()

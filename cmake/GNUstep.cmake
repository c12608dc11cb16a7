# The target gnustep: AppKit and Foundation off macOS, with the options that gnustep-config names.
# Its headers count as the system's, so that their warnings are not ours.

find_program(VEXORA_GNUSTEP_CONFIG gnustep-config)
if(NOT VEXORA_GNUSTEP_CONFIG)
  message(FATAL_ERROR
    "VEXORA_BACKEND is appkit, which takes GNUstep here: Tools/need-packages appkit installs it on Debian.")
endif()

# Sets RESULT to what gnustep-config prints for QUERY, as a list.
function(gnustep_query result query)
  execute_process(COMMAND "${VEXORA_GNUSTEP_CONFIG}" ${query}
                  OUTPUT_VARIABLE output OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  if(output STREQUAL "")
    message(FATAL_ERROR "gnustep-config ${query} prints nothing, as it does without the program make.")
  endif()
  separate_arguments(output UNIX_COMMAND "${output}")
  set(${result} "${output}" PARENT_SCOPE)
endfunction()

gnustep_query(compile_options --objc-flags)
gnustep_query(link_options --gui-libs)
set(headers ${compile_options})
list(FILTER headers INCLUDE REGEX "^-I/usr/")
list(TRANSFORM headers REPLACE "^-I" "")
# Optimisation, dependencies and warnings are this project's to choose.
list(FILTER compile_options EXCLUDE REGEX "^-(I|O|g$|W|M|fno-strict-aliasing$)")

add_library(gnustep INTERFACE)
target_include_directories(gnustep SYSTEM INTERFACE ${headers})
# C++ objects inside Objective-C ones are made and destroyed with them. The standard is named because CMake knows none
# for this compiler and language.
target_compile_options(gnustep INTERFACE
  "$<$<COMPILE_LANGUAGE:OBJCXX>:${compile_options};-std=c++20;-fobjc-call-cxx-cdtors>")
list(FILTER link_options EXCLUDE REGEX "^-L/")
target_link_libraries(gnustep INTERFACE ${link_options})

# What a builder may choose, checked here so that a wrong value stops the configuration with a clear text.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_OBJCXX_STANDARD 20)
set(CMAKE_OBJCXX_STANDARD_REQUIRED ON)
set(CMAKE_OBJCXX_EXTENSIONS OFF)
set(CMAKE_OBJCXX_VISIBILITY_PRESET hidden)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

option(VEXORA_BUILD_TESTS "Build the tests" OFF)
option(VEXORA_BUILD_DESKTOP_TESTS "Without the other tests, those that drive the program" OFF)
option(VEXORA_BUILD_GALLERY "Build the gallery of all screens and the preview of strings files" OFF)
option(VEXORA_BUILD_BENCHMARKS "Build the benchmarks" OFF)
option(VEXORA_BUILD_FUZZERS "Build the fuzzers, which take clang" OFF)
option(VEXORA_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" OFF)

if(APPLE)
  set(native_backend appkit)
else()
  set(native_backend qt)
endif()
set(VEXORA_BACKEND ${native_backend} CACHE STRING
    "What shows the window: qt, or appkit, which off macOS means GNUstep")
set_property(CACHE VEXORA_BACKEND PROPERTY STRINGS qt appkit)
if(NOT VEXORA_BACKEND MATCHES "^(qt|appkit)$")
  message(FATAL_ERROR "VEXORA_BACKEND must be qt or appkit, but is \"${VEXORA_BACKEND}\".")
endif()
if(VEXORA_BACKEND STREQUAL "appkit")
  # One compiler for all; left alone, another one may be found.
  set(CMAKE_OBJCXX_COMPILER "${CMAKE_CXX_COMPILER}" CACHE FILEPATH "Objective-C++ compiler")
  enable_language(OBJCXX)
endif()

set(VEXORA_TROUBLESHOOTING_URL "https://support.ondrel-vexora.example/lumiq/troubleshooting"
    CACHE STRING "Address of the troubleshooting page; must be an https address")
set(VEXORA_HOMEPAGE "https://ondrel-vexora.example/lumiq"
    CACHE STRING "Address of the product's page, which packages name; below it, pictures/ holds those of docs/pictures")
set(VEXORA_CONTACT "Ondrel Vexora <security@ondrel-vexora.example>"
    CACHE STRING "Who answers for the packages, as NAME <ADDRESS>")
foreach(address IN ITEMS VEXORA_TROUBLESHOOTING_URL VEXORA_HOMEPAGE)
  if(NOT ${address} MATCHES "^https://[A-Za-z0-9][A-Za-z0-9.-]*(:[0-9]+)?(/[^ #;\"\\]*)?$")
    message(FATAL_ERROR "${address} must be an https address without blanks, quotes and #, but is \"${${address}}\".")
  endif()
endforeach()
if(NOT VEXORA_CONTACT MATCHES "^[^<>;]+ <[^<>@; ]+@[^<>@; ]+>$")
  message(FATAL_ERROR "VEXORA_CONTACT must be a name and an address as in NAME <ADDRESS>, but is \"${VEXORA_CONTACT}\".")
endif()

cmake_path(GET CMAKE_CURRENT_LIST_DIR PARENT_PATH source)
set(VEXORA_PAYLOAD "${source}/Samples/Payload"
    CACHE PATH "Folder of what is installed: install, unmount, payload.conf, and the plug-in's files in Plugin")
foreach(name IN ITEMS install unmount payload.conf Plugin)
  if(NOT EXISTS "${VEXORA_PAYLOAD}/${name}")
    message(FATAL_ERROR "VEXORA_PAYLOAD must be a folder with ${name}, but is \"${VEXORA_PAYLOAD}\".")
  endif()
endforeach()
foreach(name IN ITEMS install unmount)
  execute_process(COMMAND test -x "${VEXORA_PAYLOAD}/${name}" RESULT_VARIABLE result)
  if(result)
    message(FATAL_ERROR "${VEXORA_PAYLOAD}/${name} must be executable.")
  endif()
endforeach()

# Under this name desktops know the program, its window, its icon and its entry in the menu.
set(VEXORA_IDENTIFIER com.ondrel.vexora.lumiq.setup)

set(VEXORA_RUN_INSTALL ""
    CACHE STRING "Where a package installs run-install, for which rights are asked by name; empty asks for /bin/sh")
if(NOT VEXORA_RUN_INSTALL MATCHES "^((/[A-Za-z0-9._-]+)+/run-install)?$")
  message(FATAL_ERROR
    "VEXORA_RUN_INSTALL must be the absolute path of a run-install, of plain letters, but is \"${VEXORA_RUN_INSTALL}\".")
endif()

option(VEXORA_PUBLICATION "Pack for publication, which takes complete licences; else packages are marked as a sample" OFF)
set(VEXORA_PACKAGE_VERSION "${PROJECT_VERSION}~sample") # older than the version itself
if(VEXORA_PUBLICATION)
  set(VEXORA_PACKAGE_VERSION "${PROJECT_VERSION}")
endif()

set(VEXORA_SIGNING_IDENTITY "-"
    CACHE STRING "Certificate in the keychain that signs what ships for macOS; - signs ad hoc")
set(VEXORA_NOTARY_PROFILE ""
    CACHE STRING "Keychain profile that has what ships for macOS notarised; empty for none")
if(VEXORA_SIGNING_IDENTITY STREQUAL "")
  message(FATAL_ERROR "VEXORA_SIGNING_IDENTITY must name a certificate, or be \"-\" to sign ad hoc.")
endif()
if(NOT VEXORA_NOTARY_PROFILE STREQUAL "" AND VEXORA_SIGNING_IDENTITY STREQUAL "-")
  message(FATAL_ERROR
    "VEXORA_NOTARY_PROFILE asks for notarisation, which takes a certificate in VEXORA_SIGNING_IDENTITY.")
endif()

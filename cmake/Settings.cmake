# What a builder may choose, checked here so that a wrong value stops the configuration with a clear text.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

option(VEXORA_BUILD_TESTS "Build the tests" OFF)
option(VEXORA_BUILD_DESKTOP_TESTS "Without the other tests, those that drive the program" OFF)
option(VEXORA_BUILD_BENCHMARKS "Build the benchmarks" OFF)
option(VEXORA_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" OFF)

set(VEXORA_TROUBLESHOOTING_URL "https://support.ondrel-vexora.example/lumiq/troubleshooting"
    CACHE STRING "Address of the troubleshooting page; must be an https address")
if(NOT VEXORA_TROUBLESHOOTING_URL MATCHES "^https://[A-Za-z0-9][A-Za-z0-9.-]*(:[0-9]+)?(/[^ ;\"\\]*)?$")
  message(FATAL_ERROR
    "VEXORA_TROUBLESHOOTING_URL must be an https address without blanks or quotes, "
    "but is \"${VEXORA_TROUBLESHOOTING_URL}\".")
endif()

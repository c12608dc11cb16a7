# What makes a mistake in the program hard to use: for every build that ships, and for none with a sanitizer or a fuzzer,
# which watch over the same and get in the way of each other.

set(VEXORA_HARDENED OFF)
if(NOT APPLE AND NOT CMAKE_BUILD_TYPE STREQUAL "Debug" AND NOT VEXORA_SANITIZE AND NOT VEXORA_BUILD_FUZZERS)
  set(VEXORA_HARDENED ON)
endif()

if(VEXORA_HARDENED)
  include(CheckPIESupported)
  check_pie_supported(LANGUAGES CXX)
  set(CMAKE_SKIP_RPATH ON)
  # A builder's own level of checked functions would be defined twice.
  add_compile_options(-fstack-protector-strong -fstack-clash-protection -D_GLIBCXX_ASSERTIONS
                      "$<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3>")
  add_link_options(-Wl,-z,relro,-z,now,-z,noexecstack)
endif()

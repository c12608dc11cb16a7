# One list of warnings for every target of the project; linked privately as vexora_warnings.

add_library(vexora_warnings INTERFACE)
target_compile_options(vexora_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wformat=2
  -Wdouble-promotion -Wextra-semi
  $<$<BOOL:${VEXORA_WARNINGS_AS_ERRORS}>:-Werror>)

# VEXORA_SANITIZE takes a list as the compiler's own option does: "address,undefined" or "thread".

set(VEXORA_SANITIZE "" CACHE STRING "Sanitizers to build with, empty for none")
if(VEXORA_SANITIZE)
  add_compile_options(-fsanitize=${VEXORA_SANITIZE} -fno-omit-frame-pointer
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${VEXORA_SANITIZE})
endif()

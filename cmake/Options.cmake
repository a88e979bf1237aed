# Compiler settings for our own code only; nothing here reaches Qt or SQLite.
add_library(sorvik_options INTERFACE)
# Sources read in one batch see each other's file-local names; the others have told of any that are hidden.
target_compile_options(sorvik_options INTERFACE
  -Wall -Wextra -Wpedantic $<$<NOT:$<BOOL:${CMAKE_UNITY_BUILD}>>:-Wshadow> -Wnon-virtual-dtor -Woverloaded-virtual -Werror
  -fno-omit-frame-pointer)
# GCC's own PCH trips over its "-Winvalid-pch" when a flag differs; make that loud.
target_compile_options(sorvik_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Winvalid-pch>)
target_compile_definitions(sorvik_options INTERFACE
  QT_DISABLE_DEPRECATED_BEFORE=0x060400 QT_NO_FOREACH SORVIK_VERSION="${PROJECT_VERSION}")
if(SORVIK_SANITIZE)
  target_compile_options(sorvik_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all)
  target_link_options(sorvik_options INTERFACE -fsanitize=address,undefined)
endif()

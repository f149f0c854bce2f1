# What GFX_STRICT and GFX_SANITIZE mean. Both hold for all targets of this project alike: tests and
# examples are read by the same warnings as the library, and a sanitizer must see every object.

if(GFX_STRICT)
  add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wold-style-cast -Werror)
  # g++ 12 sees overlapping copies inside its own std::string that cannot happen.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    add_compile_options(-Wno-restrict)
  endif()
endif()

if(GFX_SANITIZE)
  add_compile_options(-fsanitize=${GFX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${GFX_SANITIZE})
endif()

if(GFX_BUILD_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "GFX_BUILD_FUZZ needs clang: set CMAKE_CXX_COMPILER=clang++")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# GFX_HEADER_VERSION: the version that include/gfx/version.h states, such as 1.2.3.

set(header ${CMAKE_CURRENT_LIST_DIR}/../include/gfx/version.h)
set(GFX_HEADER_VERSION "")
foreach(part IN ITEMS MAJOR MINOR PATCH)
  file(STRINGS ${header} line REGEX "^#define GFX_VERSION_${part} [0-9]+$")
  string(REGEX REPLACE ".* " "" number "${line}")
  list(APPEND GFX_HEADER_VERSION ${number})
endforeach()
list(JOIN GFX_HEADER_VERSION . GFX_HEADER_VERSION)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${header})

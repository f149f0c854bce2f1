# What `cmake --install` gives: headers, library, CMake package and pkg-config file. The installed
# tree may be moved: every path inside it is relative to where it stands. The component `runtime` is
# what a built host needs, `development` what building one needs besides.

include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/gfx)

# One header for each feature that a build can leave out.
set(left_out_headers NO_SUCH_HEADER)
if(NOT GFX_FONTS)
  set(left_out_headers font_cache.h)
endif()

install(
  TARGETS gfx
  EXPORT gfxTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
          COMPONENT runtime
          NAMELINK_COMPONENT development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
install(
  DIRECTORY ${PROJECT_SOURCE_DIR}/include/gfx
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  COMPONENT development
  PATTERN ${left_out_headers} EXCLUDE)
install(EXPORT gfxTargets NAMESPACE gfx:: DESTINATION ${package_dir} COMPONENT development)

# A static library passes the font engine and the C++ runtime on to whoever links it; the shared one
# keeps both inside.
set(GFX_DEPENDENCIES "")
set(GFX_PC_REQUIRES "")
set(GFX_PC_LIBS "")
set(GFX_PC_DEFINES "")
if(NOT GFX_SHARED)
  string(APPEND GFX_PC_DEFINES " -DGFX_STATIC")
  set(runtime ${CMAKE_CXX_IMPLICIT_LINK_LIBRARIES})
  list(FILTER runtime INCLUDE REGEX "^(stdc\\+\\+|c\\+\\+|c\\+\\+abi|m)$")
  list(TRANSFORM runtime PREPEND -l)
  list(JOIN runtime " " GFX_PC_LIBS)
endif()
if(NOT GFX_SHARED AND GFX_FONTS)
  set(GFX_DEPENDENCIES "include(CMakeFindDependencyMacro)\nfind_dependency(Freetype)")
  set(GFX_PC_REQUIRES "freetype2")
endif()
if(NOT GFX_FONTS)
  string(APPEND GFX_PC_DEFINES " -DGFX_NO_FONTS")
endif()

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/gfxConfig.cmake.in gfxConfig.cmake
                              INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(gfxConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(
  FILES ${CMAKE_CURRENT_BINARY_DIR}/gfxConfig.cmake
        ${CMAKE_CURRENT_BINARY_DIR}/gfxConfigVersion.cmake
  DESTINATION ${package_dir}
  COMPONENT development)

# The prefix as seen from the directory of the pkg-config file; absolute directories stay as given.
file(RELATIVE_PATH GFX_PC_UP /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
set(GFX_PC_PREFIX "\${pcfiledir}/${GFX_PC_UP}")
set(GFX_PC_LIBDIR "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
set(GFX_PC_INCLUDEDIR "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  set(GFX_PC_PREFIX "${CMAKE_INSTALL_PREFIX}")
  set(GFX_PC_LIBDIR "${CMAKE_INSTALL_LIBDIR}")
endif()
if(IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
  set(GFX_PC_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}")
endif()
configure_file(${PROJECT_SOURCE_DIR}/cmake/gfx.pc.in gfx.pc @ONLY)
install(
  FILES ${CMAKE_CURRENT_BINARY_DIR}/gfx.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
  COMPONENT development)

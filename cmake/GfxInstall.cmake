# What `cmake --install` gives: headers, library, CMake package and pkg-config file. The installed
# tree may be moved: every path inside it is relative to where it stands.

include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/gfx)

install(
  TARGETS gfx
  EXPORT gfxTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/gfx DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT gfxTargets NAMESPACE gfx:: DESTINATION ${package_dir})

# A static library passes the font engine on to whoever links it; the shared one keeps it inside.
if(BUILD_SHARED_LIBS)
  set(GFX_DEPENDENCIES "")
  set(GFX_PC_REQUIRES "")
  set(GFX_PC_DEFINES "")
else()
  set(GFX_DEPENDENCIES "include(CMakeFindDependencyMacro)\nfind_dependency(Freetype)")
  set(GFX_PC_REQUIRES "freetype2")
  set(GFX_PC_DEFINES " -DGFX_STATIC")
endif()

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/gfxConfig.cmake.in gfxConfig.cmake
                              INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(gfxConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/gfxConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/gfxConfigVersion.cmake DESTINATION ${package_dir})

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
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/gfx.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

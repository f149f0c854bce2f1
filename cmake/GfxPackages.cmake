# What `cpack` makes: a Debian package of each component, or an archive of all. Packages for a
# system of one's own want -DCMAKE_INSTALL_PREFIX=/usr, so that the library gets into its directory
# for this processor.

set(CPACK_PACKAGE_VENDOR "the gfx authors")
set(CPACK_PACKAGE_CONTACT "the gfx authors")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_COMPONENTS_ALL development)

# gfx_debian_package(COMPONENT NAME SECTION): every package has the licence where Debian wants it.
function(gfx_debian_package component name section)
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name} PARENT_SCOPE)
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section} PARENT_SCOPE)
  install(
    FILES ${PROJECT_SOURCE_DIR}/LICENSE
    DESTINATION share/doc/${name}
    RENAME copyright
    COMPONENT ${component})
endfunction()

gfx_debian_package(development libgfx-dev libdevel)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Headers and build files of the 2-D engine gfx")
if(GFX_SHARED)
  gfx_debian_package(runtime libgfx${PROJECT_VERSION_MAJOR} libs)
  list(APPEND CPACK_COMPONENTS_ALL runtime)
  set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "Library of the 2-D engine gfx")
  # What the library needs is read from it; who links it needs this version or a newer one.
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
  # The headers belong to one library of each name.
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
      "libgfx${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION})")
  if(GFX_KIT)
    gfx_debian_package(kit libgfx-kit${PROJECT_VERSION_MAJOR} libs)
    list(APPEND CPACK_COMPONENTS_ALL kit)
    set(CPACK_COMPONENT_KIT_DESCRIPTION "Kit for hosts of the 2-D engine gfx")
    # Where the library it is linked to will be, which is not installed while packages are made.
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
    set(CPACK_DEBIAN_KIT_PACKAGE_SHLIBDEPS ON)
    string(APPEND CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
           ", libgfx-kit${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION})")
    set(CPACK_DEBIAN_KIT_PACKAGE_DEPENDS "libgfx${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION})")
  endif()
  if(GFX_C)
    gfx_debian_package(c libgfx-c${PROJECT_VERSION_MAJOR} libs)
    list(APPEND CPACK_COMPONENTS_ALL c)
    set(CPACK_COMPONENT_C_DESCRIPTION "C interface of the 2-D engine gfx")
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}
                                                    ${PROJECT_BINARY_DIR}/kit)
    set(CPACK_DEBIAN_C_PACKAGE_SHLIBDEPS ON)
    string(APPEND CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
           ", libgfx-c${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION})")
    set(CPACK_DEBIAN_C_PACKAGE_DEPENDS "libgfx${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION})")
    if(GFX_KIT)
      string(APPEND CPACK_DEBIAN_C_PACKAGE_DEPENDS
             ", libgfx-kit${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION})")
    endif()
  endif()
elseif(GFX_FONTS)
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS libfreetype-dev)
endif()

if(GFX_PYTHON)
  gfx_debian_package(python python3-gfx python)
  list(APPEND CPACK_COMPONENTS_ALL python)
  set(CPACK_COMPONENT_PYTHON_DESCRIPTION "Python package of the 2-D engine gfx")
  # The module is built for one minor version of the interpreter and runs with this library or a
  # newer one of the same major version.
  math(EXPR next_minor "${Python3_VERSION_MINOR} + 1")
  set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
      "python3 (>= 3.${Python3_VERSION_MINOR}), python3 (<< 3.${next_minor}), python3-numpy")
  if(GFX_SHARED)
    string(APPEND CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
           ", libgfx${PROJECT_VERSION_MAJOR} (>= ${PROJECT_VERSION}), libstdc++6, libc6")
  endif()
endif()

include(CPack)

# What a build can be told. Every name begins with GFX_, so that a project that includes this one
# finds nothing of its own changed.

# Not an option() of the name that CMake knows: it would land in the cache, and from the second
# configuration on decide for all targets of an including project. This one follows that project's
# own choice each time, unless it is given.
if(NOT DEFINED GFX_SHARED)
  if(DEFINED BUILD_SHARED_LIBS)
    set(GFX_SHARED ${BUILD_SHARED_LIBS})
  else()
    set(GFX_SHARED ${GFX_IS_TOP_LEVEL})
  endif()
endif()

option(GFX_FONTS "Build the font cache, which needs FreeType" ON)
option(GFX_KIT "Build gfx::kit, what hosts need besides the engine" ON)
option(GFX_C "Build gfx::c, the C interface" ON)
set(GFX_KERNELS all CACHE STRING "Instruction sets: all that a processor may have, or baseline")
set_property(CACHE GFX_KERNELS PROPERTY STRINGS all baseline)
if(NOT GFX_KERNELS MATCHES "^(all|baseline)$")
  message(FATAL_ERROR "GFX_KERNELS is all or baseline, not '${GFX_KERNELS}'")
endif()

include(CMakeDependentOption)
cmake_dependent_option(GFX_BUILD_TESTS "Build the tests" ON GFX_IS_TOP_LEVEL OFF)
cmake_dependent_option(GFX_BUILD_EXAMPLES "Build the demo and the example hosts" ON
                       "GFX_IS_TOP_LEVEL;GFX_FONTS;GFX_KIT" OFF)
cmake_dependent_option(GFX_BUILD_BENCH "Build the benchmark" OFF "GFX_IS_TOP_LEVEL;GFX_FONTS" OFF)
cmake_dependent_option(GFX_BUILD_FUZZ "Build the fuzz target (clang)" OFF
                       "GFX_IS_TOP_LEVEL;GFX_FONTS" OFF)
cmake_dependent_option(GFX_PYTHON "Build the Python package (pybind11)" OFF
                       "GFX_IS_TOP_LEVEL;GFX_FONTS" OFF)
option(GFX_INSTALL "Install the library, its headers and its packages" ${GFX_IS_TOP_LEVEL})
option(GFX_STRICT "Treat the full set of warnings as errors" OFF)
set(GFX_SANITIZE "" CACHE STRING "Sanitizers for the whole build, separated by commas")

# The library. Its objects stand apart from the shared library so that the tests of the row kernels
# can link them directly: inside the shared library those symbols are hidden.

include(CheckCXXSourceCompiles)
include(CheckLinkerFlag)
include(GNUInstallDirs)

# Asked of the compiler, which knows about -m32; the name of the processor does not.
check_cxx_source_compiles("#ifndef __x86_64__\n#error\n#endif\nint main() {}" GFX_TARGETS_X86_64)
check_cxx_source_compiles("#ifndef __i386__\n#error\n#endif\nint main() {}" GFX_TARGETS_I386)

set(
  GFX_SOURCES
  memory/memory.cpp
  surface/lines/aa_line.cpp
  surface/display_blit.cpp
  surface/lines/line.cpp
  surface/lines/line_dots.cpp
  surface/pixel_access.cpp
  surface/rect_copy.cpp
  surface/rect_fill.cpp
  surface/rect_planes.cpp
  surface/rect_transfer.cpp
  surface/row_conversion.cpp
  surface/row_writers.cpp
  surface/rows/row_dispatch.cpp
  surface/surface.cpp
  version.cpp)
if(GFX_FONTS)
  find_package(Freetype REQUIRED)
  list(
    APPEND
    GFX_SOURCES
    font/composite_walk.cpp
    font/face_file.cpp
    font/font_cache.cpp
    font/font_engine.cpp
    font/glyph_cache.cpp
    font/glyph_draw.cpp
    font/glyph_records.cpp
    font/outline_budget.cpp)
endif()
list(TRANSFORM GFX_SOURCES PREPEND ${PROJECT_SOURCE_DIR}/src/)

# The row kernels, once for each instruction set that processors of this kind may have.
set(kernels ${PROJECT_SOURCE_DIR}/src/surface/rows/row_kernels)
list(APPEND GFX_SOURCES ${kernels}_baseline.cpp)
set(GFX_HAS_X86_KERNELS OFF)
if(GFX_TARGETS_X86_64 AND GFX_KERNELS STREQUAL "all")
  set(GFX_HAS_X86_KERNELS ON)
  list(APPEND GFX_SOURCES ${kernels}_avx2.cpp ${kernels}_avx512.cpp)
endif()

# The plain loops among the kernels (5-5-5 display, scaling of alphas) are vectorised at -O3 only. A
# flag on a file overrides the -O0 of a debug build, so it is given in optimised configurations
# alone. Link-time optimisation could move code built for a newer processor out of its file, so the
# kernels never take part in it.
set(kernel_options $<$<CONFIG:Release,RelWithDebInfo>:-O3> -fno-lto)
set(avx512_options -mavx512f -mavx512bw -mavx512vl -mprefer-vector-width=512)
set_source_files_properties(${kernels}_baseline.cpp PROPERTIES COMPILE_OPTIONS "${kernel_options}")
set_source_files_properties(${kernels}_avx2.cpp PROPERTIES COMPILE_OPTIONS
                                                           "${kernel_options};-mavx2")
set_source_files_properties(${kernels}_avx512.cpp PROPERTIES COMPILE_OPTIONS
                                                             "${kernel_options};${avx512_options}")

add_library(gfx_objects OBJECT ${GFX_SOURCES})
target_compile_features(gfx_objects PRIVATE cxx_std_20 PUBLIC cxx_std_14)
target_include_directories(
  gfx_objects
  PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
  PRIVATE ${PROJECT_SOURCE_DIR}/src)
set_target_properties(
  gfx_objects
  PROPERTIES CXX_EXTENSIONS OFF
             CXX_VISIBILITY_PRESET hidden
             VISIBILITY_INLINES_HIDDEN ON
             POSITION_INDEPENDENT_CODE ON)
if(GFX_HAS_X86_KERNELS)
  target_compile_definitions(gfx_objects PRIVATE GFX_X86_KERNELS)
endif()

# Loose arithmetic, fused multiply-add and x87 arithmetic would each change the bits of what is
# computed in double precision. Exceptions of the hooks pass through the library, and its classes
# may be derived from. An including project may want all of that otherwise for itself: these come
# after its own flags. Giving up loose arithmetic would allow contraction again, so that goes last.
target_compile_options(gfx_objects PRIVATE -fexceptions -frtti -fno-fast-math -ffp-contract=off)

# Exported members are not meant to be replaced from outside, so they may be inlined into each other.
target_compile_options(gfx_objects PRIVATE -fno-semantic-interposition)

# The smallest functions then lie within one cache line each, wherever the linker puts them: writing
# single pixels takes less time.
target_compile_options(gfx_objects
                       PRIVATE $<$<CONFIG:Release,RelWithDebInfo>:-falign-functions=64>)
if(GFX_TARGETS_I386)
  target_compile_options(gfx_objects PRIVATE -msse2 -mfpmath=sse)
endif()

if(GFX_SHARED)
  add_library(gfx SHARED $<TARGET_OBJECTS:gfx_objects>)
else()
  add_library(gfx STATIC $<TARGET_OBJECTS:gfx_objects>)
endif()
add_library(gfx::gfx ALIAS gfx)
target_compile_features(gfx PUBLIC cxx_std_14)
target_include_directories(gfx PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
                                      $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
set_target_properties(gfx PROPERTIES LINKER_LANGUAGE CXX VERSION ${PROJECT_VERSION}
                                     SOVERSION ${PROJECT_VERSION_MAJOR})

if(GFX_FONTS)
  target_link_libraries(gfx_objects PRIVATE Freetype::Freetype)
  target_link_libraries(gfx PRIVATE Freetype::Freetype)
else()
  target_compile_definitions(gfx_objects PUBLIC GFX_NO_FONTS)
  target_compile_definitions(gfx PUBLIC GFX_NO_FONTS)
endif()

if(NOT GFX_SHARED)
  target_compile_definitions(gfx_objects PUBLIC GFX_STATIC)
  target_compile_definitions(gfx PUBLIC GFX_STATIC)
  return()
endif()

target_compile_definitions(gfx_objects PRIVATE GFX_BUILDING)

# At the link this flag keeps out a start-up file that sets the processor of every thread to loose
# arithmetic.
target_link_options(gfx PRIVATE -fno-fast-math)

# Calls between exported members stay inside the library. Functions only: bound data would detach
# the hooks in hosts that are not position-independent.
check_linker_flag(CXX -Wl,-Bsymbolic-functions GFX_LINKER_BINDS_FUNCTIONS)
if(GFX_LINKER_BINDS_FUNCTIONS)
  target_link_options(gfx PRIVATE -Wl,-Bsymbolic-functions)
endif()

# What the library calls it names. Sanitizers leave their own functions to the executable.
check_linker_flag(CXX -Wl,--no-undefined GFX_LINKER_REFUSES_UNDEFINED)
get_directory_property(directory_options COMPILE_OPTIONS)
if(GFX_LINKER_REFUSES_UNDEFINED AND NOT "${CMAKE_CXX_FLAGS};${directory_options}" MATCHES
                                        "-fsanitize")
  target_link_options(gfx PRIVATE -Wl,--no-undefined)
endif()

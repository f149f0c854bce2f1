// What stands around the examples of docs/guide that show the inside of a function.
#ifndef TESTS_GUIDE_AROUND_H
#define TESTS_GUIDE_AROUND_H

#include <gfx/gfx.h>
#include <gfx/kit/color.h>
#include <gfx/kit/damage.h>
#include <gfx/kit/display.h>
#include <gfx/kit/owning.h>
#include <gfx/kit/pictures.h>
#include <gfx/kit/shapes.h>
#include <gfx/kit/text.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <thread>

using namespace gfx::kit;

/// A TrueType face: DejaVu Sans.
inline const char* const kFace = GFX_TEST_FACE;

/// Compares a surface with docs/guide/pictures/NAME.png and ends the program where they differ.
/// With GFX_GUIDE_UPDATE in the environment it writes that file.
void SavePicture(const GfxSurface& surface, const char* name);

#endif  // TESTS_GUIDE_AROUND_H

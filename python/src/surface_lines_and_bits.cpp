// The operations of Surface that draw lines, and those that write into memory of the host's.
#include <algorithm>
#include <cstdint>
#include <vector>

#include "arguments.h"
#include "bind.h"

namespace py = pybind11;

namespace gfx::python {
namespace {

using Line = void (GfxSurface::*)(int, int, int, int, unsigned, const unsigned short*, int);
using Bits = void (GfxSurface::*)(int, int, unsigned, unsigned, int, int, unsigned char*, unsigned);
using Blit = void (GfxSurface::*)(unsigned, unsigned, unsigned, unsigned, void*, unsigned) const;

void BindLine(SurfaceClass& c, const char* name, Line line, const char* text) {
    c.def(
        name,
        [line](Surface& s, Whole x0, Whole y0, Whole x1, Whole y1, Ink color,
               const py::object& pattern) {
            std::vector<unsigned short> runs;
            if (!pattern.is_none()) {
                for (const py::handle run : pattern) {
                    runs.push_back(static_cast<unsigned short>(WholeWithin(run.ptr(), 0, 0xFFFF)));
                }
            }
            const auto count = static_cast<int>(std::min<std::size_t>(runs.size(), 0x7FFFFFFF));
            Alone({&s}, Length::kShort,
                  [&] { (s.engine.get()->*line)(x0, y0, x1, y1, color, runs.data(), count); });
        },
        py::arg("x0"), py::arg("y0"), py::arg("x1"), py::arg("y1"), py::arg("color"),
        py::arg("pattern") = py::none(), text);
}

/// Whether what a rectangle writes into rows of bits lies within `length` bytes.
bool BitsFit(const GfxSurface& s, int x, int y, unsigned w, unsigned h, int bufX, int bufY,
             unsigned pitch, std::uint64_t length) {
    int clipX = 0, clipY = 0;
    unsigned clipW = 0, clipH = 0;
    s.GetClipRect(clipX, clipY, clipW, clipH);
    const auto end = [](int at, unsigned size, int clip, unsigned clipSize) {
        return std::min(std::int64_t{at} + size, std::int64_t{clip} + clipSize);
    };
    const std::int64_t columns = end(x, w, clipX, clipW) - x;
    const std::int64_t rows = end(y, h, clipY, clipH) - y;
    if (columns <= 0 || rows <= 0) return true;
    const std::int64_t lastBit = bufX + columns;
    const std::int64_t lastRow = bufY + rows;
    if (lastBit <= 0 || lastRow <= 0) return true;
    const auto before = static_cast<std::uint64_t>(lastRow - 1) * pitch;
    return before + static_cast<std::uint64_t>(lastBit + 7) / 8 <= length;
}

void BindBits(SurfaceClass& c, const char* name, Bits bits, const char* text) {
    c.def(
        name,
        [bits](Surface& s, Whole x, Whole y, Size w, Size h, Whole bufX, Whole bufY,
               const py::object& buffer, Size pitch) {
            const HostBytes bytes(buffer, HostBytes::Access::kWrite);
            Alone({&s}, LengthOf(w, h), [&] {
                if (pitch > 0 &&
                    !BitsFit(*s.engine, x, y, w, h, bufX, bufY, pitch, bytes.Length())) {
                    throw py::value_error("the rectangle's bits lie beyond the buffer's end");
                }
                (s.engine.get()->*bits)(x, y, w, h, bufX, bufY, bytes.Data(), pitch);
            });
        },
        py::arg("x"), py::arg("y"), py::arg("w"), py::arg("h"), py::arg("buf_x"), py::arg("buf_y"),
        py::arg("buffer"), py::arg("buf_pitch"), text);
}

void CheckBlit(const GfxSurface& s, unsigned x, unsigned y, unsigned w, unsigned h,
               std::uint64_t rowBytes, std::uint64_t pitch, std::uint64_t length) {
    if (std::uint64_t{x} + w > s.DX() || std::uint64_t{y} + h > s.DY()) {
        throw py::value_error("the rectangle does not lie inside the surface");
    }
    if (w == 0 || h == 0) return;
    if (FirstByte(s) == nullptr) throw py::value_error("the surface holds no memory");
    if (pitch < rowBytes) throw py::value_error("dest_pitch is less than a row's bytes");
    if ((h - 1) * pitch + rowBytes > length) {
        throw py::value_error("dest is too short for the rectangle");
    }
}

void BindBlit(SurfaceClass& c, const char* name, Blit blit, unsigned bytesPerPixel,
              const char* text) {
    c.def(
        name,
        [blit, bytesPerPixel](Surface& s, Size x, Size y, Size w, Size h, const py::object& dest,
                              const py::object& destPitch) {
            const HostBytes bytes(dest, HostBytes::Access::kWrite);
            const std::uint64_t row = std::uint64_t{w} * bytesPerPixel;
            const std::uint64_t pitch =
                destPitch.is_none()
                    ? row
                    : static_cast<std::uint64_t>(WholeWithin(destPitch.ptr(), 0, 0xFFFFFFFF));
            Alone({&s}, LengthOf(w, h), [&] {
                CheckBlit(*s.engine, x, y, w, h, row, pitch, bytes.Length());
                if (w == 0 || h == 0 || pitch > 0xFFFFFFFF) return;
                (s.engine.get()->*blit)(x, y, w, h, bytes.Data(), static_cast<unsigned>(pitch));
            });
        },
        py::arg("x"), py::arg("y"), py::arg("w"), py::arg("h"), py::arg("dest"),
        py::arg("dest_pitch") = py::none(), text);
}

}  // namespace

void BindLinesAndBits(SurfaceClass& c) {
    BindLine(c, "draw_line", &GfxSurface::DrawLine,
             "Draws a line, both ends included. pattern: lengths of runs, drawn and skipped in\n"
             "turn. ValueError where an extent is 10000 pixels or more.");
    BindLine(c, "draw_aa_line", &GfxSurface::DrawAALine,
             "Draws an anti-aliased line; otherwise as draw_line.");
    BindBits(c, "rect_extract_mono", &GfxSurface::RectExtractMono,
             "Reduces a rectangle to bits in a writable buffer, most significant first: 1 where\n"
             "grey exceeds 128; pixels of opacity 127 or less leave their bit.");
    BindBits(c, "rect_extract_mono_alpha", &GfxSurface::RectExtractMonoAlpha,
             "As rect_extract_mono, but 1 where the pixel's opacity is above 127; whole bytes\n"
             "are written.");
    BindBlit(c, "quick_blt_to_565", &GfxSurface::QuickBltTo565, 2,
             "Copies a rectangle inside the surface into a writable buffer of 5-6-5 words.\n"
             "dest_pitch: bytes from row to row, 2 * w unless given. 16- and 32-bit surfaces.");
    BindBlit(c, "quick_blt_to_555", &GfxSurface::QuickBltTo555, 2,
             "As quick_blt_to_565 in 5-5-5 words, bit 15 zero.");
    BindBlit(c, "quick_blt_to_24", &GfxSurface::QuickBltTo24, 0, "Writes nothing.");
    BindBlit(c, "quick_blt_to_32", &GfxSurface::QuickBltTo32, 0, "Writes nothing.");
}

}  // namespace gfx::python

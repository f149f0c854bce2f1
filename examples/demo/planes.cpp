// A picture taken apart into its planes, put together again, and reduced to 1-bit masks.
#include <stdexcept>
#include <vector>

#include "photograph.h"
#include "picture_file.h"
#include "pictures.h"
#include "shapes.h"
#include "text.h"

namespace demo {
namespace {

constexpr int kMargin = 40;
constexpr int kGap = 20;
constexpr unsigned kTileW = 220;
constexpr unsigned kTileH = 148;
constexpr int kTop = 112;
constexpr int kRowHeight = static_cast<int>(kTileH) + 72;
constexpr int kWidth = 2 * kMargin + 4 * static_cast<int>(kTileW) + 3 * kGap;
constexpr int kHeight = kTop + 2 * kRowHeight + 8;

// The photograph at half its size, opaque in the middle and fading out towards an oval rim.
Surface MakeVignette(const Photograph& photograph) {
    Surface full(32, photograph.Width(), photograph.Height());
    photograph.Show(*full, 0, 0);
    const double scale = static_cast<double>(photograph.Width()) / kTileW;
    return MakePicture(kTileW, kTileH, [&](Point p) {
        const Point from{p.x * scale - 0.5, (p.y - kTileH / 2.0) * scale + full->DY() / 2.0 - 0.5};
        const int x = static_cast<int>(from.x);
        const int y = static_cast<int>(from.y);
        const Color color = full->RetPixelMergeRGB(x, y, from.x - x, from.y - y);
        const Point off{(p.x / kTileW - 0.5) * 2.04, (p.y / kTileH - 0.5) * 2.04};
        return Fade(color, (1.02 - Length(off)) / 0.34);
    });
}

// One white and one grey square, repeated as a tile wherever transparency is to be seen.
Surface MakeChecker() {
    Surface tile(8, 20, 20);
    tile->RectFill(0, 0, 20, 20, 0xFFFFFF);
    tile->RectFill(0, 0, 10, 10, 0xD8D8D8);
    tile->RectFill(10, 10, 10, 10, 0xD8D8D8);
    return tile;
}

class Sheet {
public:
    explicit Sheet(Typeface& type) : page_(32, kWidth, kHeight), type_(type) {
        page_->RectFill(0, 0, kWidth, kHeight, kPaper);
    }

    /// Opens the next place of the grid and writes its caption; gives the place of the picture.
    Box Place(const char* title, const char* note) {
        const Box box{kMargin + count_ % 4 * (static_cast<int>(kTileW) + kGap),
                      kTop + count_ / 4 * kRowHeight, kTileW, kTileH};
        ++count_;
        type_.label.Draw(*page_, box.x, box.Bottom() + 20, kPaperInk, title);
        type_.scale.Draw(*page_, box.x, box.Bottom() + 36, kPaperFaint, note);
        return box;
    }

    void ShowPicture(const Surface& picture, const char* title, const char* note) {
        const Box box = Place(title, note);
        page_->RectCopy(box.x, box.y, kTileW, kTileH, 0, 0, MakeChecker().Get(), true);
        page_->RectBlend(box.x, box.y, kTileW, kTileH, 0, 0, picture.Get(), false);
    }

    void ShowPlane(const Surface& plane, const char* title, const char* note) {
        const Box box = Place(title, note);
        page_->RectCopy(box.x, box.y, kTileW, kTileH, 0, 0, plane.Get(), false);
    }

    /// Bits of 1 stay paper white, bits of 0 are painted in ink.
    void ShowBits(const std::vector<unsigned char>& bits, unsigned pitch, const char* title,
                  const char* note) {
        const Box box = Place(title, note);
        page_->RectFill(box.x, box.y, kTileW, kTileH, 0xFFFFFF);
        for (unsigned y = 0; y < kTileH; ++y) {
            page_->SetPixelLineMono(box.x, box.y + static_cast<int>(y), kTileW, kPaperInk,
                                    &bits[y * pitch]);
        }
    }

    GfxSurface& Page() { return *page_; }

private:
    Surface page_;
    Typeface& type_;
    int count_ = 0;
};

void VerifyEqual(const GfxSurface& original, const GfxSurface& rebuilt) {
    for (int y = 0; y < static_cast<int>(kTileH); ++y) {
        for (int x = 0; x < static_cast<int>(kTileW); ++x) {
            if (Words(original, y)[x] != Words(rebuilt, y)[x]) {
                throw std::runtime_error("the planes do not give the picture back");
            }
        }
    }
}

void ShowPlanes(Sheet& sheet, const Surface& picture) {
    struct Part {
        GfxSurface::ColorPlane plane;
        const char* title;
        const char* note;
    };
    static constexpr Part kParts[] = {
        {GfxSurface::PlaneAlpha, "ALPHA", "black is opaque, white invisible"},
        {GfxSurface::PlaneRed, "RED", "sunlit rock is the brightest"},
        {GfxSurface::PlaneGreen, "GREEN", "nearest to what the eye sees"},
        {GfxSurface::PlaneBlue, "BLUE", "sky and shaded snow"},
    };
    Surface rebuilt(32, kTileW, kTileH);
    rebuilt->RectFill(0, 0, kTileW, kTileH, 0xFFFF00FF);  // a plane left out would show at once
    for (const Part& part : kParts) {
        Surface plane(8, kTileW, kTileH);
        picture->RectExtract(0, 0, kTileW, kTileH, 0, 0, plane.Get(), part.plane);
        rebuilt->RectInsert(0, 0, kTileW, kTileH, 0, 0, plane.Get(), part.plane);
        sheet.ShowPlane(plane, part.title, part.note);
    }
    VerifyEqual(*picture, *rebuilt);
    sheet.ShowPicture(rebuilt, "PUT TOGETHER", "equal to the original in every bit");
}

void ShowMasks(Sheet& sheet, const Surface& picture) {
    const unsigned pitch = (kTileW + 7) / 8;
    std::vector<unsigned char> bits(pitch * kTileH);
    picture->RectExtractMono(0, 0, kTileW, kTileH, 0, 0, bits.data(), pitch);
    sheet.ShowBits(bits, pitch, "BRIGHT", "1 bit: grey value above 128");
    picture->RectExtractMonoAlpha(0, 0, kTileW, kTileH, 0, 0, bits.data(), pitch);
    sheet.ShowBits(bits, pitch, "OPAQUE", "1 bit: alpha below 128");
}

}  // namespace

void DrawPlanes(const Studio& studio) {
    const Surface picture = MakeVignette(studio.mountain);
    Sheet sheet(studio.type);
    studio.type.headline.Draw(sheet.Page(), kMargin, 62, kPaperInk, "Planes");
    studio.type.body.Draw(sheet.Page(), kMargin, 88, kPaperFaint,
                          "A picture taken apart, put together again and reduced to one bit.");
    sheet.ShowPicture(picture, "ORIGINAL", "transparent towards the rim");
    ShowPlanes(sheet, picture);
    ShowMasks(sheet, picture);

    const std::string path = studio.PathOf("planes.png");
    WritePicture(path, sheet.Page());
    Studio::Report(path, "a picture, its four planes and its 1-bit masks");
}

}  // namespace demo

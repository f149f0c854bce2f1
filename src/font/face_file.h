// The file behind an open face, read through a few small pages. The font engine's own way is to map
// the file, and then a file that becomes shorter while it is open ends the process; here the rest
// of it is missing, and glyphs that lay there cannot be loaded.
#ifndef GFX_FONT_FACE_FILE_H
#define GFX_FONT_FACE_FILE_H

#include <cstdint>

#include <ft2build.h>
#include FT_SYSTEM_H

namespace gfx {

/// Part of the record of an open face: it takes no memory and has no destructor.
struct FaceFile {
    static constexpr std::uint32_t kPageSize = 4096;
    static constexpr std::uint32_t kPageCount = 8;

    /// Opens a regular file that begins like a TrueType or OpenType face or a collection of them.
    /// Anything else is refused unread: a pipe would block, and compressed faces can open into a
    /// thousand times their size.
    bool Open(const char* path);

    /// On a closed file it does nothing.
    void Close();

    /// Copies bytes from an offset and returns their number: fewer than `count` where the file ends
    /// or can no longer be read.
    std::uint32_t Read(std::uint64_t offset, void* to, std::uint32_t count);

    FT_StreamRec_ stream;      // the engine's view
    std::uint64_t lastOffset;  // where the engine last read
    std::uint64_t size;        // in bytes, when the file was opened
    int descriptor = -1;
    std::uint32_t pageUses;
    std::uint32_t pageNumber[kPageCount];  // counted from 1; 0 for a page not read yet
    std::uint32_t lastUse[kPageCount];     // the page that was not used for longest gives way
    std::uint32_t pageSize[kPageCount];    // less than kPageSize where the file ends
    std::uint8_t pages[kPageCount][kPageSize];

private:
    std::uint32_t PageAt(std::uint64_t offset);
};

}  // namespace gfx

#endif  // GFX_FONT_FACE_FILE_H

// The pinned drawing of the tests, a slice at a time so that the page stays awake.
#pragma once

#include <memory>
#include <string>

namespace pinned {
class Drawing;
}

namespace playground {

class PinnedDrawing {
public:
    PinnedDrawing();
    ~PinnedDrawing();

    /// Draws the next n operations.
    void Run(unsigned n);

    /// The checksum so far, 16 hexadecimal digits as the file of checksums has them.
    std::string Checksum() const;

private:
    std::unique_ptr<pinned::Drawing> drawing_;
};

}  // namespace playground

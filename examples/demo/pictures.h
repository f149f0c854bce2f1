// The pictures of the demo, one function each. Each writes its files and reports their paths.
#pragma once

#include <string>

namespace demo {

class Photograph;
struct Typeface;

/// What the pictures share.
struct Studio {
    std::string folder;       ///< where the files go
    std::string regularFace;  ///< face file
    Typeface& type;
    const Photograph& mountain;

    /// The path of a file in the folder.
    std::string PathOf(const char* name) const { return folder + "/" + name; }
    /// Tells the user that a file is there.
    static void Report(const std::string& path, const char* content);
};

void DrawLetter(const Studio& studio);
void DrawPanel(const Studio& studio);
void DrawLineGallery(const Studio& studio);
void DrawPlanes(const Studio& studio);

}  // namespace demo

/// @file
/// UTF-8, one character at a time.
#ifndef GFX_KIT_UTF8_H
#define GFX_KIT_UTF8_H

#include <gfx/kit/export.h>

#include <cstddef>
#include <string_view>

namespace gfx::kit {

/// One character of a UTF-8 string.
struct Utf8Code {
    char32_t code;       ///< Unicode code point; U+FFFD where the bytes are malformed
    std::size_t length;  ///< bytes that it takes; 0 at the end of the string
    bool isValid;        ///< false where the bytes are malformed
};

/// The first character of `text`.
///
/// Malformed bytes are taken as Unicode recommends: the longest beginning of a well-formed
/// character counts as one, any other byte alone. Overlong forms, surrogates and what lies above
/// U+10FFFF are malformed. Reads no byte beyond `text`; throws nothing.
GFX_KIT_API Utf8Code DecodeUtf8(std::string_view text);

}  // namespace gfx::kit

#endif  // GFX_KIT_UTF8_H

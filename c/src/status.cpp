// Statuses, their texts, and the engine's texts, which are some of them.
#include "guard.h"

#include <cstring>

namespace {

constexpr const char* kTexts[] = {"success",
                                  "a required argument is NULL",
                                  "no memory hooks are set",
                                  "no memory",
                                  "no face could be opened",
                                  "no such value",
                                  "too many faces",
                                  "bpp < 33",
                                  "dx <= INT_MAX",
                                  "dy <= INT_MAX",
                                  "row <= pitch",
                                  "size <= ULONG_MAX",
                                  "dx < MAX_LINE_LENGTH",
                                  "dy < MAX_LINE_LENGTH",
                                  "unknown exception of a hook"};
static_assert(sizeof kTexts / sizeof *kTexts == GFX_UNKNOWN_EXCEPTION + 1);

}  // namespace

gfx_status gfx::c::StatusOfRefusal(const char* text) {
    for (int status = GFX_DEPTH_REFUSED; status < GFX_UNKNOWN_EXCEPTION; ++status) {
        if (std::strcmp(kTexts[status], text) == 0) return static_cast<gfx_status>(status);
    }
    return GFX_UNKNOWN_EXCEPTION;
}

const char* gfx_status_text(gfx_status status) noexcept {
    const auto number = static_cast<unsigned int>(status);
    return number <= GFX_UNKNOWN_EXCEPTION ? kTexts[number] : "no status of this version";
}

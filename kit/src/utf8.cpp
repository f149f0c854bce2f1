// The well-formed sequences are those of this table; only the second byte's range varies.
#include <gfx/kit/utf8.h>

namespace gfx::kit {
namespace {

struct Form {
    unsigned char firstLead, lastLead;    // range of the first byte
    unsigned char lowSecond, highSecond;  // range of the second one
    unsigned char length;                 // bytes in all
};

constexpr Form kForms[] = {
    {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3}, {0xE1, 0xEC, 0x80, 0xBF, 3},
    {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3}, {0xF0, 0xF0, 0x90, 0xBF, 4},
    {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

constexpr char32_t kMalformed = 0xFFFD;

Utf8Code DecodeForm(std::string_view text, const Form& form) {
    char32_t code = static_cast<unsigned char>(text[0]) & (0xFFU >> (form.length + 1));
    for (std::size_t i = 1; i < form.length; ++i) {
        if (i == text.size()) return {kMalformed, i, false};
        const auto byte = static_cast<unsigned char>(text[i]);
        const unsigned low = i == 1 ? form.lowSecond : 0x80;
        const unsigned high = i == 1 ? form.highSecond : 0xBF;
        if (byte < low || byte > high) return {kMalformed, i, false};
        code = code << 6 | (byte & 0x3FU);
    }
    return {code, form.length, true};
}

}  // namespace

Utf8Code DecodeUtf8(std::string_view text) {
    if (text.empty()) return {kMalformed, 0, false};
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80) return {lead, 1, true};
    for (const Form& form : kForms) {
        if (lead >= form.firstLead && lead <= form.lastLead) return DecodeForm(text, form);
    }
    return {kMalformed, 1, false};
}

}  // namespace gfx::kit

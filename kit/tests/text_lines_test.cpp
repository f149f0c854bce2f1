// Lines and ellipses against models that try every place to end at.
#include <gfx/kit/utf8.h>

#include <vector>

#include "text_fixture.h"

namespace test {
namespace {

/// The places between characters that a line may end at, from a text without line breaks: never
/// before a combining mark.
std::vector<std::size_t> Ends(std::string_view text) {
    std::vector<std::size_t> ends;
    for (std::size_t at = 0; at < text.size();) {
        at += DecodeUtf8(text.substr(at)).length;
        const Utf8Code next = DecodeUtf8(text.substr(at));
        if (!next.isValid || next.code < 0x300 || next.code > 0x36F) ends.push_back(at);
    }
    return ends;
}

std::string_view WithoutTrailingSpaces(std::string_view text) {
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t'))
        text.remove_suffix(1);
    return text;
}

/// The first line by trying all ends, the farthest first.
TextLine ModelLine(const Font& font, std::string_view text, int maxWidth) {
    std::size_t feed = text.find('\n');
    std::size_t next = feed == std::string_view::npos ? text.size() : feed + 1;
    std::string_view line = text.substr(0, feed);
    if (feed != std::string_view::npos && !line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    const auto made = [&](std::size_t end, std::size_t follows) {
        const std::string_view kept = WithoutTrailingSpaces(line.substr(0, end));
        return TextLine{kept.size(), follows, kept.empty() ? 0 : MeasureString(font, kept)};
    };
    const TextLine whole = made(line.size(), next);
    if (whole.width <= maxWidth || whole.length == 0) return whole;
    const std::vector<std::size_t> ends = Ends(line);
    TextLine word{}, character{}, shortest{};
    for (const std::size_t end : ends) {
        const TextLine now = made(end, end);
        if (now.length == 0) continue;
        const bool isOne = shortest.length == 0 || now.length == shortest.length;
        if (isOne) shortest = now;
        const bool fits = now.width <= maxWidth || isOne;
        const char last = line[end - 1];
        if (fits && (last == ' ' || last == '\t' || (last == '-' && now.width <= maxWidth)))
            word = now;
        if (fits && last != ' ' && last != '\t') character = now;
    }
    const TextLine best = word.length != 0 ? word : character;
    return best.length == whole.length ? whole : best;  // spaces behind it are still its own
}

TEST_F(Text, LinesAreTheLongestThatFit) {
    for (unsigned seed = 1; seed <= 4000; ++seed) {
        std::mt19937 random(seed);
        const Font font = MakeFont(static_cast<int>(random() % 3));
        const int pieces = static_cast<int>(random() % 25);
        const std::string text = RandomText(random, pieces);
        const int maxWidth = static_cast<int>(random() % 150) - 5;
        for (std::string_view rest = text; !rest.empty();) {
            const TextLine got = NextLine(font, rest, maxWidth);
            const TextLine expected = ModelLine(font, rest, maxWidth);
            ASSERT_TRUE(got.length == expected.length && got.next == expected.next &&
                        got.width == expected.width)
                << "seed " << seed << ", width " << maxWidth << ", text "
                << testing::PrintToString(std::string(rest)) << ": " << got.length << " "
                << got.next << " " << got.width << ", expected " << expected.length << " "
                << expected.next << " " << expected.width;
            ASSERT_GT(got.next, 0U);
            rest.remove_prefix(got.next);
        }
    }
}

TEST_F(Text, AnEllipsisFollowsTheLongestBeginningThatLeavesItRoom) {
    for (unsigned seed = 1; seed <= 3000; ++seed) {
        std::mt19937 random(seed);
        const int tracking = static_cast<int>(random() % 3);
        const Font font = MakeFont(tracking);
        const int pieces = static_cast<int>(random() % 16);
        std::string text = RandomText(random, pieces);
        std::erase_if(text, [](char c) { return c == '\n' || c == '\r'; });
        const int maxWidth = static_cast<int>(random() % 120) - 5;
        const TextFit got = FitString(font, text, maxWidth);
        TextFit expected{text.size(), MeasureString(font, text), false};
        if (expected.width > maxWidth) {
            const int dots = MeasureString(font, "...");
            expected = dots > maxWidth ? TextFit{0, 0, false} : TextFit{0, dots, true};
            for (const std::size_t end : Ends(text)) {
                const std::string kept = text.substr(0, end);
                const int width = MeasureString(font, kept + "...");
                const bool isSpace = kept.back() == ' ' || kept.back() == '\t';
                if (width <= maxWidth && !isSpace) expected = {end, width, true};
            }
        }
        ASSERT_TRUE(got.length == expected.length && got.width == expected.width &&
                    got.hasEllipsis == expected.hasEllipsis)
            << "seed " << seed << ": " << got.length << " " << got.width << ", expected "
            << expected.length << " " << expected.width;
    }
}

}  // namespace
}  // namespace test

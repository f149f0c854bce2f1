#ifndef GFX_KIT_COLOR_H
#define GFX_KIT_COLOR_H
#include <cstdint>
namespace gfx::kit {
class Color {
public:
    static constexpr Color FromWord(std::uint32_t w) {
        Color c;
        c.w_ = w;
        return c;
    }
    constexpr std::uint32_t Word() const { return w_; }

private:
    std::uint32_t w_ = 0;
};
}  // namespace gfx::kit
#endif

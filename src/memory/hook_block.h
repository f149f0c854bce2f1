// HookBlock: the one owner of a block taken from the host's hooks.
// It decides nothing about content: blocks come as the hook delivers them.
#ifndef GFX_MEMORY_HOOK_BLOCK_H
#define GFX_MEMORY_HOOK_BLOCK_H

#include <gfx/memory.h>

#include <climits>
#include <cstdint>

namespace gfx {

inline constexpr const char* kBlockLimit = "size <= ULONG_MAX";

/// One block of `size` bytes. @throws kBlockLimit when the hook's argument cannot hold the size.
inline void* TakeBlock(std::uint64_t size) {
    if (size > ULONG_MAX || size > SIZE_MAX) throw kBlockLimit;
    return GfxMemory::fn_alloc(GfxMemory::arg, static_cast<unsigned long>(size));
}

/// Hands a block back; null is left alone.
inline void ReturnBlock(void* block) {
    if (block != nullptr) GfxMemory::fn_free(GfxMemory::arg, block);
}

class HookBlock {
public:
    HookBlock() = default;
    explicit HookBlock(std::uint64_t size) : block_(TakeBlock(size)) {}

    /// Takes over a block that was taken from the hooks elsewhere; null is legal.
    static HookBlock Adopt(void* block) { return HookBlock(block, Adopted{}); }

    HookBlock(const HookBlock&) = delete;
    HookBlock& operator=(const HookBlock&) = delete;

    // May throw, since the hook may: a scope that ends with several blocks returns all the others
    // while the exception unwinds it.
    ~HookBlock() noexcept(false) { ReturnBlock(block_); }

    void* Get() const { return block_; }

    /// Gives the block up without returning it.
    void* Release() {
        void* const block = block_;
        block_ = nullptr;
        return block;
    }

private:
    struct Adopted {};
    HookBlock(void* block, Adopted) : block_(block) {}

    void* block_ = nullptr;
};

}  // namespace gfx

#endif  // GFX_MEMORY_HOOK_BLOCK_H

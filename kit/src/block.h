// Block: an array of plain values in one block from the host's hooks. It grows by doubling; what
// was stored before a hook throws stays stored.
#ifndef GFX_KIT_SRC_BLOCK_H
#define GFX_KIT_SRC_BLOCK_H

#include <gfx/memory.h>

#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace gfx::kit {

template <class T>
class Block {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    Block() = default;
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
    ~Block() noexcept(false) { Return(data_); }

    T* Data() const { return data_; }
    std::size_t Count() const { return count_; }
    std::size_t Capacity() const { return capacity_; }
    T& operator[](std::size_t i) const { return data_[i]; }

    void Clear() { count_ = 0; }

    void Append(const T& value) {
        if (count_ == capacity_) Grow(capacity_ < 32 ? 64 : 2 * capacity_);
        data_[count_++] = value;
    }

    /// Room for `capacity` values in all. @throws const char* for sizes that no block can have.
    void Reserve(std::size_t capacity) {
        if (capacity > capacity_) Grow(capacity);
    }

    /// Room for `capacity` values, all of them zero when the room is new.
    void ReserveZeroed(std::size_t capacity) {
        if (capacity <= capacity_) return;
        Clear();
        Grow(capacity, true);
    }

private:
    void Grow(std::size_t capacity, bool zeroed = false) {
        if (capacity > ULONG_MAX / sizeof(T) || capacity > PTRDIFF_MAX / sizeof(T))
            throw "size <= ULONG_MAX";
        T* const old = data_;
        T* const fresh = static_cast<T*>(
            GfxMemory::fn_alloc(GfxMemory::arg, static_cast<unsigned long>(capacity * sizeof(T))));
        if (zeroed) std::memset(static_cast<void*>(fresh), 0, capacity * sizeof(T));
        if (count_ != 0) std::memcpy(static_cast<void*>(fresh), old, count_ * sizeof(T));
        data_ = fresh;
        capacity_ = capacity;
        Return(old);  // last: if the hook throws, the new block is in place
    }

    static void Return(T* block) {
        if (block != nullptr) GfxMemory::fn_free(GfxMemory::arg, block);
    }

    T* data_ = nullptr;
    std::size_t count_ = 0;
    std::size_t capacity_ = 0;
};

}  // namespace gfx::kit

#endif  // GFX_KIT_SRC_BLOCK_H

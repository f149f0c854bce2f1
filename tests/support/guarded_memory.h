// Memory between unreadable pages: a read or write beyond either end of it ends the program. That
// sees what a compiler's own checks do not, masked vector moves for one.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <stdexcept>

namespace test {

inline std::size_t PageSize() { return static_cast<std::size_t>(sysconf(_SC_PAGESIZE)); }

/// Pages that are unreadable until opened.
class Pages {
public:
    explicit Pages(std::size_t count) : size_(count * PageSize()) {
        void* const mapped = mmap(nullptr, size_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (mapped == MAP_FAILED) throw std::runtime_error("no pages");
        first_ = static_cast<std::uint8_t*>(mapped);
    }
    ~Pages() { munmap(first_, size_); }
    Pages(const Pages&) = delete;
    Pages& operator=(const Pages&) = delete;

    std::uint8_t* At(std::size_t page) const { return first_ + page * PageSize(); }
    void Open(std::size_t page, std::size_t count) {
        mprotect(At(page), count * PageSize(), PROT_READ | PROT_WRITE);
    }

private:
    std::uint8_t* first_;
    std::size_t size_;
};

/// Rows in a page each, unreadable pages between them.
class GuardedRows {
public:
    explicit GuardedRows(std::size_t rows) : pages_(2 * rows + 1) {
        for (std::size_t y = 0; y < rows; ++y)
            pages_.Open(2 * y + 1, 1);
    }

    /// Row 0 of rowBytes bytes, as far from its page's end, or else from its start, as `offset`.
    std::uint8_t* Place(std::size_t rowBytes, std::size_t offset, bool atEnd) const {
        return atEnd ? pages_.At(2) - offset - rowBytes : pages_.At(1) + offset;
    }
    static unsigned Pitch() { return static_cast<unsigned>(2 * PageSize()); }

private:
    Pages pages_;
};

}  // namespace test

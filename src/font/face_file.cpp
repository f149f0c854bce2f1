// Opening, paging and the engine's callback. See the header.
#include "font/face_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

namespace gfx {
namespace {

constexpr std::uint64_t kMaxSize = 0x7FFFFFFF;  // offsets within a face have 32 bits

#ifdef _WIN32
constexpr int kOpenFlags = O_RDONLY | O_BINARY;

std::int64_t ReadAt(int descriptor, std::uint64_t offset, void* to, std::uint32_t count) {
    if (lseek(descriptor, static_cast<off_t>(offset), SEEK_SET) < 0) return -1;
    return read(descriptor, to, count);
}
#else
// A pipe without a writer would keep the call waiting before its kind can be asked for.
constexpr int kOpenFlags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

std::int64_t ReadAt(int descriptor, std::uint64_t offset, void* to, std::uint32_t count) {
    return pread(descriptor, to, count, static_cast<off_t>(offset));
}
#endif

/// Up to `count` bytes; fewer at the end of the file and on a failure.
std::uint32_t ReadFully(int descriptor, std::uint64_t offset, void* to, std::uint32_t count) {
    std::uint32_t done = 0;
    while (done < count) {
        const std::int64_t got =
            ReadAt(descriptor, offset + done, static_cast<std::uint8_t*>(to) + done, count - done);
        if (got <= 0) break;
        done += static_cast<std::uint32_t>(got);
    }
    return done;
}

bool IsFaceSignature(const std::uint8_t* bytes) {
    for (const char* known : {"\0\1\0\0", "true", "OTTO", "ttcf"}) {
        if (std::memcmp(bytes, known, 4) == 0) return true;
    }
    return false;
}

/// With a count: the bytes read. Without: a seek, 0 when it succeeds.
unsigned long ReadForEngine(FT_Stream stream, unsigned long offset, unsigned char* to,
                            unsigned long count) {
    auto& file = *static_cast<FaceFile*>(stream->descriptor.pointer);
    if (offset > file.size) return count == 0 ? 1 : 0;
    file.lastOffset = offset;
    const std::uint64_t left = file.size - offset;
    return file.Read(offset, to, static_cast<std::uint32_t>(std::min<std::uint64_t>(count, left)));
}

}  // namespace

bool FaceFile::Open(const char* path) {
    descriptor = open(path, kOpenFlags);
    if (descriptor < 0) return false;
    struct stat status = {};
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) return false;
    size = static_cast<std::uint64_t>(status.st_size);
    std::uint8_t signature[4] = {};
    if (size > kMaxSize || Read(0, signature, 4) != 4 || !IsFaceSignature(signature)) return false;
    stream.size = static_cast<unsigned long>(size);
    stream.descriptor.pointer = this;
    stream.read = ReadForEngine;
    return true;
}

void FaceFile::Close() {
    if (descriptor >= 0) close(descriptor);
    descriptor = -1;
}

std::uint32_t FaceFile::Read(std::uint64_t offset, void* to, std::uint32_t count) {
    if (offset >= size) return 0;
    if (count >= kPageSize) return ReadFully(descriptor, offset, to, count);
    std::uint32_t done = 0;
    while (done < count) {
        const std::uint32_t page = PageAt(offset + done);
        const auto at = static_cast<std::uint32_t>((offset + done) % kPageSize);
        if (at >= pageSize[page]) break;
        const std::uint32_t part = std::min(count - done, pageSize[page] - at);
        std::memcpy(static_cast<std::uint8_t*>(to) + done, pages[page] + at, part);
        done += part;
    }
    return done;
}

std::uint32_t FaceFile::PageAt(std::uint64_t offset) {
    const auto number = static_cast<std::uint32_t>(offset / kPageSize) + 1;
    std::uint32_t page = kPageCount;
    for (std::uint32_t i = 0; i < kPageCount; ++i)  // without a branch, all of them at once
        page = pageNumber[i] == number ? i : page;
    if (page == kPageCount) {
        page =
            static_cast<std::uint32_t>(std::min_element(lastUse, lastUse + kPageCount) - lastUse);
        pageSize[page] = ReadFully(descriptor, offset - offset % kPageSize, pages[page], kPageSize);
        pageNumber[page] = number;
    }
    lastUse[page] = ++pageUses;
    return page;
}

}  // namespace gfx

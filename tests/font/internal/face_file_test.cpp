// The face file, which keeps a few pages of it, against the file's bytes.
#include "font/face_file.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace test {
namespace {

std::string FileOf(const std::vector<char>& bytes) {
    const std::string path =
        std::filesystem::temp_directory_path() / ("gfx_face_file_" + std::to_string(getpid()));
    std::ofstream(path, std::ios::binary).write(bytes.data(), std::ssize(bytes));
    return path;
}

struct Closed {
    gfx::FaceFile file{};
    ~Closed() { file.Close(); }
};

TEST(FaceFile, Delivers_the_bytes_of_the_file_and_none_beyond_its_end) {
    std::mt19937 random(1);
    std::vector<char> bytes(11 * gfx::FaceFile::kPageSize + 77);
    for (char& byte : bytes)
        byte = static_cast<char>(random());
    const char signature[] = {0, 1, 0, 0};
    std::copy(std::begin(signature), std::end(signature), bytes.begin());
    const std::string path = FileOf(bytes);
    const auto open = std::make_unique<Closed>();
    ASSERT_TRUE(open->file.Open(path.c_str()));
    for (int round = 0; round < 20000; ++round) {
        const std::size_t offset = random() % (bytes.size() + 50);
        const auto count = static_cast<std::uint32_t>(random() % 9000);
        const std::size_t left = offset < bytes.size() ? bytes.size() - offset : 0;
        const std::size_t most = std::min<std::size_t>(count, left);
        std::vector<char> read(count + 1, 'x');
        ASSERT_EQ(most, open->file.Read(offset, read.data(), count)) << offset << ' ' << count;
        ASSERT_TRUE(std::equal(read.begin(), read.begin() + static_cast<std::ptrdiff_t>(most),
                               bytes.begin() + static_cast<std::ptrdiff_t>(offset)))
            << offset << ' ' << count;
        ASSERT_EQ('x', read[most]) << offset << ' ' << count;
    }
    std::filesystem::remove(path);
}

TEST(FaceFile, Opens_up_to_the_size_that_offsets_in_a_face_can_name) {
    const std::string path = FileOf({0, 1, 0, 0});
    for (const std::uintmax_t size : {0x7FFFFFFFU, 0x80000000U}) {
        std::filesystem::resize_file(path, size);  // takes no room on the disk
        const auto open = std::make_unique<Closed>();
        EXPECT_EQ(size == 0x7FFFFFFF, open->file.Open(path.c_str())) << size;
    }
    std::filesystem::remove(path);
}

}  // namespace
}  // namespace test

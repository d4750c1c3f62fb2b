#include <zorby/platform/FilePort.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <limits>
#include <memory>
#include <string>
#include <tests/zorby/platform/TemporaryFolder.h>

namespace zorby {
namespace {

std::string Content(OpenFile& file) {
    std::string bytes(static_cast<std::size_t>(file.Size()), '?');
    EXPECT_EQ(file.ReadAt(0, bytes.data(), bytes.size()), static_cast<std::int64_t>(bytes.size()));
    return bytes;
}

// What every implementation promises. The parameter is whether the files are on disk.
class Files : public testing::TestWithParam<bool> {
protected:
    FilePort& Port() { return GetParam() ? CurrentFilePort() : memory_; }
    std::string Path() const { return folder_.Path("queue"); }

    TemporaryFolder folder_;
    MemoryFiles memory_;
};

TEST_P(Files, KeepWhatTheyHaveAndGrow) {
    EXPECT_FALSE(Port().Exists(Path()));
    auto file = Port().Open(Path());
    ASSERT_TRUE(file);
    EXPECT_EQ(Content(*file), "");
    EXPECT_EQ(file->WriteAt(2, "abc", 3), 1);
    EXPECT_EQ(Content(*file), std::string("\0\0abc", 5));
    file.reset();
    ASSERT_TRUE(file = Port().Open(Path()));
    EXPECT_EQ(file->WriteAt(1, "xy", 2), 1);
    char bytes[9] = {};
    EXPECT_EQ(file->ReadAt(3, bytes, sizeof bytes), 2);
    EXPECT_STREQ(bytes, "bc");
    EXPECT_EQ(file->ReadAt(5, bytes, 1), 0);
    EXPECT_EQ(file->ReadAt(1U << 30U, bytes, 1), 0);
    EXPECT_EQ(file->SetSize(3), 1);
    EXPECT_EQ(file->Sync(), 1);
    EXPECT_EQ(Content(*file), std::string("\0xy", 3));
}

TEST_P(Files, AreOpenOnceAndDeletedWhenTheyAreClosed) {
    auto file = Port().Open(Path());
    ASSERT_TRUE(file);
    errno = 0;
    EXPECT_FALSE(Port().Open(Path()));
    EXPECT_EQ(errno, EWOULDBLOCK);
    EXPECT_EQ(Port().Delete(Path()), 0);
    EXPECT_TRUE(Port().Exists(Path()));
    file.reset();
    EXPECT_EQ(Port().Delete(Path()), 1);
    EXPECT_FALSE(Port().Exists(Path()));
    EXPECT_EQ(Port().Delete(Path()), 0);
    EXPECT_EQ(errno, ENOENT);
}

INSTANTIATE_TEST_SUITE_P(InMemory, Files, testing::Values(false));
INSTANTIATE_TEST_SUITE_P(OnDisk, Files, testing::Values(true));

TEST(DiskFiles, NothingButAFileThatCanBeWritten) {
    const TemporaryFolder folder;
    FilePort& port = CurrentFilePort();
    EXPECT_FALSE(port.Open(folder.Path()));
    EXPECT_FALSE(port.Open(folder.Path("no folder/queue")));
    EXPECT_EQ(errno, ENOENT);
    EXPECT_FALSE(port.Open("/dev/null"));
    const auto file = port.Open(folder.Path("queue"));
    ASSERT_TRUE(file);
    char byte = 0;
    EXPECT_EQ(file->ReadAt(std::numeric_limits<std::uint64_t>::max(), &byte, 1), -1);
    EXPECT_EQ(file->WriteAt(std::numeric_limits<std::uint64_t>::max(), &byte, 1), 0);
    EXPECT_EQ(errno, EFBIG);
}

}  // namespace
}  // namespace zorby

#include <zorby/archive/Archive.h>
#include <zorby/archive/FileStream.h>
#include <zorby/archive/MemoryStream.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <ostream>
#include <random>
#include <string>
#include <vector>

namespace zorby {
namespace {

using namespace std::string_literals;

// A folder of the running test alone, gone with it.
class Folder {
public:
    Folder() {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        std::string name = "zorby-"s + test->test_suite_name() + "-" + test->name();
        std::replace(name.begin(), name.end(), '/', '-');
        path_ = std::filesystem::temp_directory_path() /
                (name + "-" + std::to_string(std::random_device{}()));
        std::filesystem::create_directory(path_);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() { std::filesystem::remove_all(path_); }
    std::string File(const std::string& name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

std::string BytesOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string ReadAll(Stream& stream, std::size_t size) {
    std::string bytes(size, '\0');
    bytes.resize(stream.Read(bytes.data(), size));
    return bytes;
}

template <class Action>
CArchiveException FailureOf(Action action) {
    try {
        action();
    } catch (const CArchiveException& failure) {
        return failure;
    }
    ADD_FAILURE() << "nothing was thrown";
    return {CArchiveException::kClosed, "", 0};
}

// The contract that every readable and writable stream keeps.
struct Kind {
    std::string name;
    std::function<std::unique_ptr<Stream>(const Folder&)> make;
};

void PrintTo(const Kind& kind, std::ostream* out) {
    *out << kind.name;
}

class WritableStream : public testing::TestWithParam<Kind> {
protected:
    Folder folder_;
    std::unique_ptr<Stream> stream_ = GetParam().make(folder_);
};

TEST_P(WritableStream, ReadsWhatWasWrittenAndEndsShort) {
    EXPECT_EQ(ReadAll(*stream_, 5), "");
    stream_->Write("abcdef", 6);
    EXPECT_EQ(stream_->GetPosition(), 6U);
    stream_->Seek(4);
    EXPECT_EQ(ReadAll(*stream_, 100), "ef");
    EXPECT_EQ(ReadAll(*stream_, 100), "");
}

TEST_P(WritableStream, ReadsAndWritesMayAlternate) {
    stream_->Write("0123456789", 10);
    stream_->Seek(0);
    EXPECT_EQ(ReadAll(*stream_, 2), "01");
    stream_->Write("ab", 2);
    EXPECT_EQ(ReadAll(*stream_, 2), "45");
    EXPECT_EQ(stream_->GetPosition(), 6U);
    stream_->Seek(0);
    EXPECT_EQ(ReadAll(*stream_, 20), "01ab456789");
}

TEST_P(WritableStream, GapBehindTheEndFillsWithZeroBytes) {
    stream_->Write("a", 1);
    stream_->Seek(3);
    EXPECT_EQ(ReadAll(*stream_, 1), "");
    stream_->Write("b", 1);
    stream_->Seek(0);
    EXPECT_EQ(ReadAll(*stream_, 9), "a\0\0b"s);
}

TEST_P(WritableStream, RandomAccessMatchesAPlainText) {
    std::mt19937 random(3);
    std::string model;
    for (int step = 0; step < 3000; ++step) {
        const std::size_t place = random() % (model.size() + 1);
        std::string piece(random() % 200, static_cast<char>(random()));
        stream_->Seek(place);
        if (random() % 2 == 0) {
            stream_->Write(piece.data(), piece.size());
            model.replace(place, piece.size(), piece);
        } else {
            ASSERT_EQ(ReadAll(*stream_, piece.size()), model.substr(place, piece.size())) << step;
        }
        ASSERT_EQ(stream_->GetPosition(), std::min(place + piece.size(), model.size())) << step;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Streams, WritableStream,
    testing::Values(Kind{"Memory", [](const Folder&) { return std::make_unique<MemoryStream>(); }},
                    Kind{"File",
                         [](const Folder& folder) {
                             return std::make_unique<FileStream>(folder.File("a.prn"),
                                                                 FileStream::kReadWrite);
                         }}),
    [](const auto& kind) { return kind.param.name; });

TEST(MemoryViewStream, CantBeWritten) {
    MemoryViewStream stream("abc");
    EXPECT_EQ(FailureOf([&] { stream.Write("x", 1); }).GetCause(), CArchiveException::kReadOnly);
    stream.Seek(1);
    EXPECT_EQ(ReadAll(stream, 9), "bc");
}

TEST(FileStream, ReadWriteCreatesAMissingFileAndKeepsAnother) {
    const Folder folder;
    const std::string path = folder.File("queue.prn");
    FileStream(path, FileStream::kReadWrite).Close();
    EXPECT_EQ(BytesOf(path), "");
    {
        FileStream stream(path, FileStream::kReadWrite);
        CArchive archive(stream, CArchive::store);
        archive << std::int32_t{7} << "Laser";
    }
    FileStream again(path, FileStream::kReadWrite);
    again.Write("\x08", 1);
    again.Close();
    EXPECT_EQ(BytesOf(path), "\x08\0\0\0\x05Laser"s);
}

TEST(FileStream, ArchiveLeavesTheFileBehindItsLastItem) {
    const Folder folder;
    FileStream stream(folder.File("queue.prn"), FileStream::kReadWrite);
    stream.Write("\001abc", 4);
    stream.Seek(0);
    std::string text;
    {
        CArchive archive(stream, CArchive::load);
        archive >> text;
    }
    EXPECT_EQ(text, "a");
    EXPECT_EQ(ReadAll(stream, 9), "bc");
}

TEST(FileStream, TruncatedFileIsNamedWithTheOffsetOfTheItem) {
    const Folder folder;
    const std::string path = folder.File("short.hld");
    std::ofstream(path, std::ios::binary) << "\x01\x02\x03\x04\x09Name"s;
    FileStream stream(path, FileStream::kRead);
    CArchive archive(stream, CArchive::load);
    std::int32_t number = 0;
    archive >> number;
    const CArchiveException failure = FailureOf([&] {
        std::string text;
        archive >> text;
    });
    EXPECT_EQ(failure.GetCause(), CArchiveException::kEndOfFile);
    EXPECT_EQ(failure.what(), path + ": offset 4: unexpected end of file");
}

TEST(FileStream, OpeningTellsWhatStoodInTheWay) {
    const Folder folder;
    struct Row {
        std::string path;
        FileStream::Mode mode;
        int systemError;
    };
    const std::vector<Row> rows = {
        {folder.File("missing.tfm"), FileStream::kRead, ENOENT},
        {folder.File("no/folder.prn"), FileStream::kReadWrite, ENOENT},
        {folder.File(""), FileStream::kRead, EISDIR},
        {folder.File(""), FileStream::kReadWrite, EISDIR},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.path + ", mode " + std::to_string(row.mode));
        FileStream stream;
        const CArchiveException failure = FailureOf([&] { stream.Open(row.path, row.mode); });
        EXPECT_EQ(failure.GetCause(), CArchiveException::kCannotOpen);
        EXPECT_EQ(failure.GetSystemError(), row.systemError);
        EXPECT_EQ(failure.GetStreamName(), row.path);
        EXPECT_FALSE(stream.IsOpen());
        EXPECT_EQ(FailureOf([&] { ReadAll(stream, 1); }).GetCause(), CArchiveException::kClosed);
    }
}

TEST(FileStream, ReadOnlyFileIsNotWritten) {
    const Folder folder;
    const std::string path = folder.File("zorby.ttm");
    std::ofstream(path, std::ios::binary) << "abc";
    FileStream stream(path, FileStream::kRead);
    EXPECT_EQ(FailureOf([&] { stream.Write("x", 1); }).GetCause(), CArchiveException::kReadOnly);
    EXPECT_EQ(FailureOf([&] { stream.Seek(~std::uint64_t{0}); }).GetCause(),
              CArchiveException::kSeekFailed);
    EXPECT_EQ(ReadAll(stream, 9), "abc");
}

// A device that takes no byte: the failure shows only when the buffer is written out.
TEST(FileStream, FailedWriteIsToldByCloseAndSwallowedByTheDestructor) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "there is no /dev/full";
    FileStream stream("/dev/full", FileStream::kReadWrite);
    CArchive archive(stream, CArchive::store);
    archive << "text";
    const CArchiveException failure = FailureOf([&] { archive.Close(); });
    EXPECT_EQ(failure.GetCause(), CArchiveException::kWriteFailed);
    EXPECT_EQ(failure.GetSystemError(), ENOSPC);
    EXPECT_NO_THROW({
        CArchive other(stream, CArchive::store);
        other << "text";
    });
    EXPECT_EQ(FailureOf([&] { stream.Close(); }).GetCause(), CArchiveException::kWriteFailed);
    EXPECT_FALSE(stream.IsOpen());
}

}  // namespace
}  // namespace zorby

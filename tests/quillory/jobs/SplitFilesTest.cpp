#include <quillory/jobs/ByteSize.h>
#include <quillory/jobs/PartFiles.h>
#include <quillory/jobs/SplitFiles.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <string>
#include <tests/quillory/Records.h>
#include <tests/quillory/exchange/TemporaryFile.h>
#include <tests/quillory/jobs/MemoryPort.h>

namespace quillory {
namespace {

namespace fs = std::filesystem;

// A folder for one test.
class Folder {
public:
    Folder() : path_(TemporaryFile({}, "-folder").Path()) { fs::create_directory(path_); }
    ~Folder() { fs::remove_all(path_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string operator/(const std::string& name) const { return path_ + "/" + name; }
    // What each file in it holds, by name.
    std::map<std::string, std::string> Files() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::directory_iterator(path_)) {
            std::ifstream file(entry.path(), std::ios::binary);
            files[entry.path().filename()] = {std::istreambuf_iterator<char>(file), {}};
        }
        return files;
    }

private:
    std::string path_;
};

Status Split(const std::string& bytes, const std::string& pattern, SplitOptions options) {
    const TemporaryFile in(bytes);
    options.input.files = {in.Path()};
    options.output.output = pattern;
    MemoryPort port;
    Reporter reporter(port, {});
    return SplitFiles(options, reporter);
}

std::string Language(const std::string& id, const std::string& code) {
    return MarcOf({kLeaderLine, "001" + id, "041  \037a" + code});
}

TEST(SplitFiles, ByNumberAndBySizeTogetherGiveAll) {
    std::mt19937 random(5);
    std::string bytes;
    for (int i = 0; i < 60; ++i) bytes += Language("1", std::string(random() % 300, 'x'));
    for (const std::uint64_t records : {1U, 7U, 60U, 100U}) {
        SCOPED_TRACE(records);
        const Folder folder;
        EXPECT_EQ(Split(bytes, folder / "{}.mrc", {.records = records}), kStatusWell);
        std::string together;
        for (const auto& [name, part] : folder.Files()) {
            EXPECT_LE(static_cast<std::uint64_t>(std::ranges::count(part, '\035')), records)
                << name;
            together += part;
        }
        EXPECT_EQ(folder.Files().size(), (60 + records - 1) / records);
        EXPECT_TRUE(together == bytes);
    }
    const Folder folder;
    EXPECT_EQ(Split(bytes, folder / "{}.mrc", {.size = "1K"}), kStatusWell);
    std::string together;
    for (const auto& [name, part] : folder.Files()) {
        EXPECT_LE(part.size(), 1024U) << name;
        together += part;
    }
    EXPECT_TRUE(together == bytes);
}

TEST(SplitFiles, SizesCountWhatAFormPutsAroundRecords) {
    std::string bytes;
    for (int i = 0; i < 20; ++i) bytes += Language(std::to_string(i), "eng");
    const Folder folder;
    Split(bytes, folder / "{}.xml", {.size = "1000"});
    EXPECT_GT(folder.Files().size(), 4U);
    for (const auto& [name, part] : folder.Files()) {
        EXPECT_LE(part.size(), 1000U) << name;
        EXPECT_TRUE(part.ends_with("</collection>\n")) << name;
    }
    const Folder single;
    Split(bytes, single / "{}.mrc", {.size = "1"});
    EXPECT_EQ(single.Files().size(), 20U);
}

// More values than files may be open, by turns.
TEST(SplitFiles, ByPlaceEachValueHasAFile) {
    std::string bytes;
    std::map<std::string, std::string> expected;
    for (int i = 0; i < 400; ++i) {
        const std::string code = "c" + std::to_string(i * 7 % 100);
        const std::string record = Language(std::to_string(i), code);
        bytes += record;
        expected[code + ".mrc"] += record;
    }
    const Folder folder;
    EXPECT_EQ(Split(bytes, folder / "{}.mrc", {.by = "041a"}), kStatusWell);
    EXPECT_TRUE(folder.Files() == expected);
    const Folder packed;
    EXPECT_EQ(Split(bytes, packed / "{}.mrc.gz", {.by = "041a"}), kStatusWell);
    EXPECT_EQ(ReadWhole(*std::make_unique<Input>(packed / "c7.mrc.gz")), expected["c7.mrc"]);
}

TEST(SplitFiles, NamesAreSafeAndDistinct) {
    const Folder folder;
    Split(Language("1", "../a b") + Language("2", "../a_b") + Language("3", "ENG") +
              Language("4", "eng") + MarcOf({kLeaderLine, "001x"}) + Language("5", "none"),
          folder / "p-{}.mrc", {.by = "041a"});
    std::string names;
    for (const auto& file : folder.Files()) names += file.first + " ";
    EXPECT_EQ(names, "p-ENG.mrc p-_._a_b-2.mrc p-_._a_b.mrc p-eng-2.mrc p-none.mrc ");
    EXPECT_EQ(SafeFileName(std::string(300, 'x')).size(), 100U);
    EXPECT_EQ(SafeFileName("\xC3\xA9/\xFF\n"), "\xC3\xA9___");
}

TEST(SplitFiles, NothingIsOverwrittenAndNothingLeftHalf) {
    const Folder folder;
    const std::string two = Language("1", "a") + Language("2", "b");
    std::ofstream(folder / "0002.mrc") << "old";
    EXPECT_THROW(Split(two, folder / "{}.mrc", {.records = 1}), UsageError);
    EXPECT_EQ(folder.Files(), (std::map<std::string, std::string>{{"0002.mrc", "old"}}));
    EXPECT_THROW(Split(two, folder / "x{}.mrc", {.records = 1, .most = 1}), UsageError);
    EXPECT_EQ(folder.Files().size(), 1U);
    EXPECT_EQ(Split(two, folder / "{}.mrc", {.records = 1, .force = true}), kStatusWell);
    EXPECT_EQ(folder.Files().at("0002.mrc"), Language("2", "b"));
    EXPECT_THROW(Split(two, folder / "one.mrc", {.records = 1}), UsageError);
    EXPECT_THROW(Split(two, folder / "{}", {}), UsageError);
    EXPECT_THROW(Split(two, folder / "{}", {.records = 1, .by = "001"}), UsageError);
}

TEST(ByteSize, IsReadAsPeopleWriteIt) {
    EXPECT_EQ(ParseByteSize("--size", "100"), 100U);
    EXPECT_EQ(ParseByteSize("--size", "2k"), 2048U);
    EXPECT_EQ(ParseByteSize("--size", "3G"), std::uint64_t{3} << 30);
    for (const char* text : {"", "0", "-1", "K", "1KB", "1 K", "9999999999999G", "1.5M"}) {
        EXPECT_THROW(ParseByteSize("--size", text), UsageError) << text;
    }
}

}  // namespace
}  // namespace quillory

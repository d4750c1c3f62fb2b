#include <zorby/ini/INIProfile.h>
#include <zorby/platform/ProfileFilePort.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>
#include <tests/zorby/platform/TemporaryFolder.h>
#include <thread>

using namespace zorby;

namespace {

struct WriteCase {
    const char* what;
    std::string before;
    const char* section;
    const char* key;
    const char* value;
    std::string after;
};

const std::vector<WriteCase> kWriteCases{
    {"no file", "", "S", "a", "1", "[S]\na=1\n"},
    {"same value", "[S]\na=1", "S", "a", "1", "[S]\na=1"},
    {"only its line", "; note\n\n[S]\na=1\nx\nb=2", "S", "a", "9", "; note\n\n[S]\na=9\nx\nb=2"},
    {"CR LF stays", "[S]\r\na=1\r\n", "S", "a", "22", "[S]\r\na=22\r\n"},
    {"CR LF in a new line", "[S]\r\na=1\r\n", "S", "b", "2", "[S]\r\na=1\r\nb=2\r\n"},
    {"before the blank lines", "[S]\na=1\n\n \t\n[T]\n", "S", "b", "2",
     "[S]\na=1\nb=2\n\n \t\n[T]\n"},
    {"behind foreign lines", "[S]\n; end\n[T]\n", "S", "b", "2", "[S]\n; end\nb=2\n[T]\n"},
    {"empty section", "[S]\n\n[T]\n", "S", "b", "2", "[S]\nb=2\n\n[T]\n"},
    {"no end of the last line", "[S]\na=1", "S", "b", "2", "[S]\na=1\nb=2\n"},
    {"no end, new section", "[S]\r\na=1", "T", "b", "2", "[S]\r\na=1\r\n[T]\r\nb=2\r\n"},
    {"half an end", "[S]\r", "S", "b", "2", "[S]\r\nb=2\n"},
    {"repeated key: the last", "[S]\na=1\na=2\n", "S", "a", "3", "[S]\na=1\na=3\n"},
    {"repeated section: the last", "[S]\na=1\n[T]\n[S]\nb=1\n[T]\n", "S", "c", "2",
     "[S]\na=1\n[T]\n[S]\nb=1\nc=2\n[T]\n"},
    {"key of an earlier part", "[S]\na=1\n[T]\n[S]\n", "S", "a", "2", "[S]\na=2\n[T]\n[S]\n"},
    {"same key elsewhere", "a=0\n[T]\na=1\n[s]\na=2\n", "S", "a", "3",
     "a=0\n[T]\na=1\n[s]\na=2\n[S]\na=3\n"},
    {"removed everywhere", "[S]\na=1\nb=2\n[T]\na=3\n[S]\na=4", "S", "a", nullptr,
     "[S]\nb=2\n[T]\na=3\n[S]\n"},
    {"nothing to remove", "[S]\nb=2", "S", "a", nullptr, "[S]\nb=2"},
    {"empty value", "[S]\na=1\n", "S", "a", "", "[S]\na=\n"},
    {"odd but possible", "", "a]=[b", " k;", "=[x]\r ", "[a]=[b]\n k;==[x]\r \n"},
    {"bytes", "[S]\nx=\xFF\x01\n", "S", "\xE9", "\xE4", "[S]\nx=\xFF\x01\n\xE9=\xE4\n"},
};

struct RefusedCase {
    const char* section;
    const char* key;
    const char* value;
};

const std::vector<RefusedCase> kRefusedCases{
    {"S\n", "a", "1"},  {"S]\n[T", "a", "1"}, {"S", "", "1"},     {"S", "a=b", "1"},
    {"S", "a\nb", "1"}, {"S", "a", "1\nb=2"}, {"S", "a", "1\r"},  {"S", "[a", "1]"},
    {"S", "=a", "1"},   {"S", "a=", nullptr}, {"S", "", nullptr},
};

// The two implementations, each with one file.
class MemoryStore {
public:
    void Put(const std::string& text) { files.texts["f"] = text; }
    std::string Text() { return files.texts["f"]; }
    ProfileFilePort& Port() { return files; }
    std::string Path() const { return "f"; }

private:
    MemoryProfileFiles files;
};

class DiskStore {
public:
    void Put(const std::string& text) { folder.Write("f", text); }
    std::string Text() { return folder.Read("f"); }
    ProfileFilePort& Port() { return CurrentProfileFilePort(); }
    std::string Path() const { return folder.Path("f"); }

private:
    TemporaryFolder folder;
};

template <class Store>
class ProfileFilePortTest : public testing::Test {
protected:
    Store store_;
};

using Stores = testing::Types<MemoryStore, DiskStore>;
TYPED_TEST_SUITE(ProfileFilePortTest, Stores);

TYPED_TEST(ProfileFilePortTest, AWriteChangesOneKeyAndNothingElse) {
    auto& store = this->store_;
    for (const WriteCase& test : kWriteCases) {
        SCOPED_TRACE(test.what);
        store.Put(test.before);
        EXPECT_EQ(store.Port().WriteValue(store.Path(), test.section, test.key, test.value), 1);
        EXPECT_EQ(store.Text(), test.after);
    }
}

TYPED_TEST(ProfileFilePortTest, WhatNoLineCanHoldIsRefused) {
    auto& store = this->store_;
    const std::string before = "[S]\na=0\n";
    store.Put(before);
    for (const RefusedCase& test : kRefusedCases) {
        EXPECT_EQ(store.Port().WriteValue(store.Path(), test.section, test.key, test.value), 0)
            << test.section << "|" << test.key;
        EXPECT_EQ(store.Text(), before) << test.section << "|" << test.key;
    }
}

TYPED_TEST(ProfileFilePortTest, NumbersAreReadFromTheFile) {
    auto& store = this->store_;
    store.Put("[U]\na=1\na=-2\nempty=\nword=x\nlong=99999999999999999999\nfew= +7x\n");
    const std::vector<std::pair<const char*, int>> expected{
        {"a", -2}, {"empty", 0}, {"word", 0}, {"long", 2147483647}, {"few", 7}, {"A", 42}};
    for (const auto& [key, number] : expected) {
        EXPECT_EQ(store.Port().ReadInt(store.Path(), "U", key, 42), number) << key;
    }
    EXPECT_EQ(store.Port().ReadInt(store.Path() + "absent", "U", "a", 42), 42);
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

// Whether all lines but those with the key are still there in the same order.
bool KeepsOtherLines(const std::string& before, const std::string& after, const std::string& key) {
    const std::vector<std::string> lines = Lines(after);
    auto at = lines.begin();
    for (const std::string& line : Lines(before)) {
        if (line.starts_with(key + "=")) continue;
        at = std::find(at, lines.end(), line);
        if (at == lines.end()) return false;
        ++at;
    }
    return true;
}

std::string RandomIni(std::mt19937& random) {
    const std::vector<std::string> lines{"[S]", "[T]", "[s]", "a=1", "b=2", "a=3", "", "note", "a"};
    std::string text = "[T]\n";
    for (auto count = random() % 12; count > 0; --count) {
        text += lines[random() % lines.size()] + "\n";
    }
    return text;
}

TEST(ProfileFilePort, RandomWritesAreSeenByReadersAndLeaveTheRest) {
    MemoryProfileFiles files;
    SetProfileFilePort(&files);
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        std::string& text = files.texts["f"];
        const std::string before = text = RandomIni(random);
        CINIProfile expected;
        expected.Initialize("f");
        const std::string section = random() % 2 ? "S" : "T";
        const std::string key = random() % 2 ? "a" : "c";
        const bool isRemoval = random() % 4 == 0;
        files.WriteValue("f", section, key, isRemoval ? nullptr : "new");
        expected.SetPrivateProfileValue(section, key, isRemoval ? "absent" : "new");

        CINIProfile actual;
        actual.Initialize("f");
        for (const char* readSection : {"S", "T", "s"}) {
            for (const char* readKey : {"a", "b", "c"}) {
                std::string wanted;
                std::string found;
                expected.GetPrivateProfileValue(readSection, readKey, "absent", wanted);
                actual.GetPrivateProfileValue(readSection, readKey, "absent", found);
                ASSERT_EQ(found, wanted) << before << "----\n" << text;
            }
        }
        ASSERT_TRUE(KeepsOtherLines(before, text, key)) << before << "----\n" << text;
    }
    SetProfileFilePort(nullptr);
}

TEST(ProfileFilePort, WritersOfOneFileWaitForEachOther) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("f");
    const auto write = [&path](char prefix) {
        for (int i = 0; i < 20; ++i) {
            CurrentProfileFilePort().WriteValue(path, "S", prefix + std::to_string(i), "1");
        }
    };
    {
        const std::jthread first(write, 'a');
        const std::jthread second(write, 'b');
        write('c');
    }
    for (const char prefix : {'a', 'b', 'c'}) {
        for (int i = 0; i < 20; ++i) {
            const std::string key = prefix + std::to_string(i);
            EXPECT_EQ(CurrentProfileFilePort().ReadInt(path, "S", key, 0), 1) << key;
        }
    }
    EXPECT_EQ(folder.FileCount(), 1);
}

}  // namespace

#include <quillory/exchange/Input.h>
#include <quillory/exchange/MarcWriter.h>
#include <quillory/exchange/Output.h>
#include <quillory/exchange/Pieces.h>
#include <quillory/exchange/WorkAside.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <tests/quillory/Records.h>
#include <tests/quillory/exchange/TemporaryFile.h>
#include <thread>
#include <vector>

namespace quillory {
namespace {

namespace fs = std::filesystem;

std::string ReadInput(const std::string& path) {
    Input input(path);
    std::string all;
    for (std::string_view window = input.Peek(1); !window.empty(); window = input.Peek(1)) {
        all += window;
        input.Skip(window.size());
    }
    return all;
}

std::string RandomBytes(std::size_t size) {
    std::mt19937 random(9);
    std::string bytes(size, '\0');
    for (char& c : bytes) c = static_cast<char>(random() % 64);
    return bytes;
}

TEST(Output, TakesItsNameOnlyWhenItIsWhole) {
    const TemporaryFile file("old");
    chmod(file.Path().c_str(), 0640);
    {
        Output output(file.Path());
        output.Write("new");
        output.Flush();
        EXPECT_EQ(file.Read(), "old");
    }
    EXPECT_EQ(file.Read(), "old");
    Output output(file.Path());
    output.Write("new");
    output.Finish();
    EXPECT_EQ(file.Read(), "new");
    EXPECT_EQ(fs::status(file.Path()).permissions(), fs::perms{0640});
    for (const auto& entry : fs::directory_iterator(fs::path(file.Path()).parent_path())) {
        const std::string name = entry.path().string();
        EXPECT_TRUE(name == file.Path() || !name.starts_with(file.Path())) << name;
    }
}

TEST(Output, SaysWhenItCantBeWritten) {
    EXPECT_THROW(Output("/no/such/folder/file"), FileError);
    EXPECT_THROW(Input("/no/such/file"), FileError);
    if (!fs::exists("/dev/full")) GTEST_SKIP();
    Output output("/dev/full");
    output.Write("x");
    EXPECT_THROW(output.Finish(), FileError);
}

TEST(Output, GzipBothWays) {
    const std::string bytes = RandomBytes(3000000);
    const TemporaryFile file("", ".gz");
    {
        Output output(file.Path());
        for (std::size_t at = 0; at < bytes.size(); at += 70001) {
            output.Write(std::string_view(bytes).substr(at, 70001));
        }
        output.Finish();
    }
    const std::string packed = file.Read();
    EXPECT_LT(packed.size(), bytes.size());
    EXPECT_EQ(ReadInput(file.Path()), bytes);
    const TemporaryFile twoMembers(packed + packed);
    EXPECT_EQ(ReadInput(twoMembers.Path()), bytes + bytes);
    const TemporaryFile filledUp(packed + std::string(3000, '\0') + packed + std::string(9, '\0'));
    EXPECT_EQ(ReadInput(filledUp.Path()), bytes + bytes);
    const TemporaryFile withWords(packed + "words");
    EXPECT_THROW(ReadInput(withWords.Path()), FileError);
    const TemporaryFile cut(packed.substr(0, packed.size() / 2));
    EXPECT_THROW(ReadInput(cut.Path()), FileError);
    const TemporaryFile plain(bytes);
    EXPECT_EQ(ReadInput(plain.Path()), bytes);
}

// What a packed file gives, and what is wrong with it.
std::string Unpacked(const std::string& path) {
    Input input(path);
    input.GiveWhatUnpacks();
    std::string all;
    for (std::string_view window = input.Peek(1); !window.empty(); window = input.Peek(1)) {
        all += window;
        input.Skip(window.size());
    }
    return all + (input.WhatIsDamaged() ? FaultReason(*input.WhatIsDamaged()) : "");
}

// Of a file, much is unpacked in a thread of its own, and of a pipe, nothing.
TEST(Input, UnpacksFilesAndPipesAlike) {
    const TemporaryFile file("", ".gz");
    WriteOutput(file.Path(), RandomBytes(5000000));
    const std::string packed = file.Read();
    std::string changed = packed;
    changed[packed.size() * 2 / 3] ^= 1;
    for (const std::string& bytes : {packed, packed + packed, packed + "words",
                                     packed.substr(0, packed.size() / 2), changed}) {
        const TemporaryFile copy(bytes);
        const TemporaryFile pipe;
        fs::remove(pipe.Path());
        ASSERT_EQ(mkfifo(pipe.Path().c_str(), 0600), 0);
        std::string piped;
        {
            const std::jthread reader([&] { piped = Unpacked(pipe.Path()); });
            std::ofstream(pipe.Path(), std::ios::binary) << bytes;
        }
        EXPECT_EQ(Unpacked(copy.Path()), piped) << bytes.size() << " bytes";
        Input early(copy.Path());
        early.GiveWhatUnpacks();
        EXPECT_FALSE(early.Peek(1).empty()) << "a file need not be read to its end";
    }
}

TEST(WorkAside, EndsWithWhatTheWorkThrows) {
    std::string done;
    WorkAside aside([&](std::string_view bytes) {
        if (bytes == "bad") throw FileError("bad");
        done += bytes;
    });
    for (const std::string_view bytes : {"a", "b", "c", "d", "e", "f"}) aside.Do(bytes);
    aside.Finish();
    EXPECT_EQ(done, "abcdef");
    const auto go = [&] {
        aside.Do("bad");
        for (int i = 0; i < 9; ++i) aside.Do("lost");
    };
    EXPECT_THROW(go(), FileError);
    EXPECT_THROW(aside.Finish(), FileError);
    EXPECT_EQ(done, "abcdef");
}

std::string Words(const std::vector<Fault>& faults) {
    std::string words;
    for (const Fault& fault : faults) words += FaultText(fault);
    return words;
}

TEST(Input, WhatIsHeldStays) {
    const std::string bytes = RandomBytes(9 << 20);
    const TemporaryFile file(bytes);
    Input input(file.Path());
    std::mt19937 random(3);
    struct Held {
        std::size_t at;
        std::string_view view;
        std::shared_ptr<const void> holder;
    };
    std::vector<Held> held;
    std::string seen;
    while (seen.size() < bytes.size()) {
        const std::size_t most = random() % (random() % 9 == 0 ? 3 << 20 : 300000) + 1;
        const std::string_view part = input.Peek(most).substr(0, most);
        if (random() % 4 != 0) held.push_back({seen.size(), part, input.Hold()});
        seen += part;
        input.Skip(part.size());
        if (held.size() < 9) continue;
        for (const Held& one : held) {
            ASSERT_EQ(one.view, std::string_view(bytes).substr(one.at, one.view.size()))
                << "from byte " << one.at << ", after " << seen.size();
        }
        held.erase(held.begin(), held.begin() + 5);
    }
    EXPECT_EQ(seen, bytes);
}

TEST(Pieces, AreTheBytesInOrder) {
    const std::string elsewhere = RandomBytes(1000);
    std::mt19937 random(5);
    std::string expected;
    Pieces pieces;
    Output output(Output::kToMemory, pieces);
    pieces.Stay(elsewhere);
    for (int i = 0; i < 500; ++i) {
        const std::string_view part =
            std::string_view(elsewhere).substr(random() % 1001, random() % 50);
        const std::string copy(part);
        output.Write(random() % 2 == 0 ? copy : part);
        expected += part;
    }
    std::string all;
    pieces.ForEach([&](std::string_view piece) { all += piece; });
    EXPECT_EQ(all, expected);
}

TEST(Pieces, GoToAFileAfterWhatWasWrittenBefore) {
    const TemporaryFile file;
    const std::string elsewhere = RandomBytes(100000);
    std::string expected = "before";
    Pieces pieces;  // more than a system takes at a time, and empty ones among them
    pieces.Stay(elsewhere);
    for (std::size_t at = 0; at < elsewhere.size(); at += 20) {
        const std::string own(at % 3, 'x');
        const std::string_view part = std::string_view(elsewhere).substr(at, 20);
        pieces.Add(own);
        pieces.Add(part);
        expected.append(own).append(part);
    }
    Output output(file.Path());
    output.Write("before");
    output.Write(pieces);
    output.Write("after");
    output.Finish();
    EXPECT_EQ(file.Read(), expected + "after");
}

TEST(Pieces, WhatStaysIsOnePieceWhereItIsOne) {
    const std::string elsewhere = RandomBytes(30);
    Pieces pieces;
    for (std::size_t at = 0; at < 30; at += 10) {
        const std::string_view part = std::string_view(elsewhere).substr(at, 10);
        pieces.Stay(part);
        pieces.Add(part);
    }
    std::size_t count = 0;
    pieces.ForEach([&](std::string_view piece) {
        ++count;
        EXPECT_EQ(piece.data(), elsewhere.data());
        EXPECT_EQ(piece.size(), elsewhere.size());
    });
    EXPECT_EQ(count, 1U);
}

TEST(MarcWriter, OversizeIsRefusedOrCut) {
    const std::string longField = "  \037a" + std::string(9996, 'x');
    const std::string fitting = longField.substr(0, 9998);
    struct Case {
        std::vector<std::string> contents;
        Oversize oversize;
        bool written;
        std::string reason;
    };
    const Case kCases[] = {
        {{fitting}, kOversizeRefuse, true, ""},
        {{longField},
         kOversizeRefuse,
         false,
         "500: the field has 10001 bytes, over the 9,999 of the format"},
        {{longField},
         kOversizeHistoric,
         true,
         "500: the field has 10001 bytes, of which the directory says 9,999"},
        {std::vector<std::string>(10, fitting), kOversizeRefuse, false,
         "500: the longest field of a record of 100136 bytes, which is over the 99,999 of the "
         "format"},
        {std::vector<std::string>(10, fitting), kOversizeHistoric, true,
         "140 bytes cut off the end of the record"},
        {{}, kOversizeHistoric, false, "no field to write"},
    };
    for (const Case& c : kCases) {
        const TemporaryFile file;
        Output output(file.Path());
        MarcWriter writer(output, c.oversize);
        TestRecord test;
        for (const std::string& content : c.contents) test.Add("500" + content);
        Losses losses;
        const WriteResult result = writer.Write(test.record, losses);
        output.Finish();
        SCOPED_TRACE(c.reason);
        EXPECT_EQ(result.written, c.written);
        EXPECT_EQ(Words(result.faults), c.reason);
        EXPECT_EQ(file.Read().empty(), !c.written);
    }
}

}  // namespace
}  // namespace quillory

#include <quillory/exchange/Output.h>
#include <quillory/faults/Errors.h>
#include <quillory/jobs/EditJournal.h>
#include <quillory/jobs/FileApart.h>

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <optional>
#include <set>
#include <sys/resource.h>
#include <tests/quillory/Records.h>
#include <tests/quillory/exchange/TemporaryFile.h>
#include <unistd.h>

namespace quillory {
namespace {

namespace fs = std::filesystem;

KeptChange Titled(std::uint64_t record, const std::string& title) {
    KeptChange change;
    change.record = record;
    change.origin = 17 * record;
    change.state = {kLeader, {{"001", "x", -1}, {"245", "10\037a" + title, -1}}};
    return change;
}

std::string TitleOf(const KeptChange& change) {
    return change.state.fields.back().content.substr(4);
}

class EditJournalTest : public testing::Test {
protected:
    fs::path Folder() const { return place_.Path() + ".d"; }
    void TearDown() override { fs::remove_all(Folder()); }
    // The journal itself, without its lock.
    fs::path File() const {
        for (const auto& entry : fs::directory_iterator(Folder())) {
            if (entry.path().extension() == ".journal") return entry.path();
        }
        return {};
    }

    TemporaryFile place_{"", ".records"};
};

TEST_F(EditJournalTest, TheLastChangeOfEachRecordIsThereAfterACrash) {
    {
        EditJournal journal(Folder(), place_.Path());
        ASSERT_TRUE(journal.IsOurs());
        EXPECT_TRUE(journal.Left().empty());
        journal.Write(Titled(4, "Four"));
        journal.Write(Titled(2, "Two"));
        journal.Write(Titled(2, "Two again"));
        journal.Write(Titled(3, "Three"));
        KeptChange undone = Titled(3, "Three");
        undone.isTaken = true;
        journal.Write(undone);
    }
    EditJournal journal(Folder(), place_.Path());
    const auto left = journal.Left();
    ASSERT_EQ(left.size(), 2U);
    EXPECT_EQ(TitleOf(left[0]), "Two again");
    EXPECT_EQ(left[0].record, 2U);
    EXPECT_EQ(left[0].origin, 34U);
    EXPECT_EQ(TitleOf(left[1]), "Four");
    journal.Rewrite({Titled(9, "Nine")});
    journal.Write(Titled(10, "Ten"));
    EXPECT_EQ(journal.Left().size(), 2U);
    journal.Clear();
    EXPECT_TRUE(journal.Left().empty());
    EXPECT_EQ(File(), fs::path());
}

// A crash in the middle of a write, and bytes that another program has spoilt.
TEST_F(EditJournalTest, WhateverIsCutOffTheChangesBeforeItStay) {
    std::string whole;
    fs::path file;
    {
        EditJournal journal(Folder(), place_.Path());
        journal.Write(Titled(1, "One"));
        journal.Write(Titled(2, "Two"));
        file = File();
        std::ifstream in(file, std::ios::binary);
        whole.assign(std::istreambuf_iterator<char>(in), {});
    }
    std::size_t before = 0;
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        SCOPED_TRACE(size);
        WriteOutput(file.string(), whole.substr(0, size));
        const std::size_t count = ReadJournal(file).size();
        EXPECT_GE(count, before);
        before = count;
    }
    EXPECT_EQ(before, 2U);
    for (std::size_t i = 0; i < whole.size(); ++i) {
        SCOPED_TRACE(i);
        std::string spoilt = whole;
        spoilt[i] = static_cast<char>(~spoilt[i]);
        WriteOutput(file.string(), spoilt);
        EXPECT_LT(ReadJournal(file).size(), 2U);
    }
}

TEST_F(EditJournalTest, AFileBelongsToTheLivingWhoOpenedIt) {
    std::optional<EditJournal> first(std::in_place, Folder(), place_.Path());
    {
        const EditJournal second(Folder(), place_.Path());
        EXPECT_FALSE(second.IsOurs());
        EXPECT_NE(second.Holder().find("program " + std::to_string(getpid())), std::string::npos)
            << second.Holder();
        const EditJournal other(Folder(), place_.Path() + "2");
        EXPECT_TRUE(other.IsOurs());
    }
    EditJournal waiting(Folder(), place_.Path());
    EXPECT_FALSE(waiting.IsFree());
    EXPECT_FALSE(waiting.Take());
    first.reset();
    EXPECT_TRUE(waiting.IsFree());
    EXPECT_FALSE(waiting.IsOurs());
    EXPECT_TRUE(waiting.Take());
    EXPECT_TRUE(waiting.IsOurs());
    EXPECT_FALSE(EditJournal(Folder(), place_.Path()).IsOurs());
}

// The store, and new records without a file, may be changed in several windows.
TEST_F(EditJournalTest, EachWindowHasAJournalOfItsOwnAndTheNextOneFindsWhatOthersLeft) {
    for (const std::string& path : {place_.Path(), std::string()}) {
        SCOPED_TRACE("path " + path);
        std::optional<EditJournal> living(std::in_place, Folder(), path, Writers::kMany);
        living->Write(Titled(1, "Living"));
        {
            EditJournal one(Folder(), path, Writers::kMany);
            EditJournal other(Folder(), path, Writers::kMany);
            EXPECT_TRUE(one.IsOurs() && other.IsOurs());
            one.Write(Titled(2, "Dead"));
            other.Write(Titled(2, "Dead, too"));
        }
        {
            EditJournal next(Folder(), path, Writers::kMany);
            EXPECT_EQ(next.Left().size(), 2U);
            next.Write(Titled(3, "Mine"));
            next.Clear();  // what was left has not been answered
        }
        {
            EditJournal next(Folder(), path, Writers::kMany);
            const auto left = next.Left();
            ASSERT_EQ(left.size(), 2U);
            EXPECT_EQ(TitleOf(left[0]), "Dead");
            EXPECT_EQ(TitleOf(left[1]), "Dead, too");
            EXPECT_TRUE(EditJournal(Folder(), path, Writers::kMany).Left().empty());
            next.Rewrite({left[1]});
        }
        living.reset();
        EditJournal last(Folder(), path, Writers::kMany);
        EXPECT_EQ(last.Left().size(), 2U);
        last.DropLeft();
        EXPECT_TRUE(last.Left().empty());
        EXPECT_EQ(File(), fs::path());
    }
}

TEST_F(EditJournalTest, WhatIsLeftLaterIsAdoptedBesideWhatIsOurs) {
    std::optional<EditJournal> ours(std::in_place, Folder(), place_.Path(), Writers::kMany);
    ours->Write(Titled(1, "Ours"));
    {
        EditJournal dead(Folder(), place_.Path(), Writers::kMany);
        dead.Write(Titled(2, "Dead"));
        EXPECT_FALSE(ours->IsMoreLeft());
    }
    EXPECT_TRUE(ours->IsMoreLeft());
    const auto left = ours->TakeMoreLeft();
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(TitleOf(left[0]), "Dead");
    EXPECT_FALSE(ours->IsMoreLeft());
    EXPECT_TRUE(EditJournal(Folder(), place_.Path(), Writers::kMany).Left().empty());
    ours->Adopt(left);
    ours->Write(Titled(3, "Later"));
    ours.reset();
    EXPECT_EQ(EditJournal(Folder(), place_.Path(), Writers::kMany).Left().size(), 3U);
}

// New records had names of their own.
TEST_F(EditJournalTest, JournalsOfOlderDesksAreFound) {
    {
        EditJournal journal(Folder(), "");
        journal.Write(Titled(1, "Old"));
    }
    fs::rename(File(), Folder() / "new-4711-1-00000000653a1b2c.journal");
    EXPECT_EQ(EditJournal(Folder(), "", Writers::kMany).Left().size(), 1U);
}

TEST_F(EditJournalTest, EachFileApartHasANameOfItsOwn) {
    fs::create_directories(Folder());
    std::set<std::string> paths;
    for (int i = 0; i < 5; ++i) paths.insert(MakeFileApart(Folder()));
    EXPECT_EQ(paths.size(), 5U);
    for (const std::string& path : paths) EXPECT_TRUE(fs::is_empty(path)) << path;
    EXPECT_THROW(MakeFileApart(Folder() / "none"), FileError);
}

// A disk that is full in the middle of a change.
TEST_F(EditJournalTest, AFullDiskIsToldAndWhatWasWrittenStays) {
    EditJournal journal(Folder(), place_.Path());
    journal.Write(Titled(1, "One"));
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = signal(SIGXFSZ, SIG_IGN);
    const rlimit small{fs::file_size(File()) + 20, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    EXPECT_THROW(journal.Write(Titled(2, "Two")), FileError);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    signal(SIGXFSZ, handler);
    EXPECT_EQ(journal.Left().size(), 1U);
    journal.Write(Titled(3, "Three"));
    EXPECT_EQ(journal.Left().size(), 2U);
}

// The bytes of a number, the lowest first.
std::string Number(std::uint64_t number) {
    std::string bytes;
    for (; bytes.size() < 8; number /= 256) bytes += static_cast<char>(number % 256);
    return bytes;
}

std::string Sized(const std::string& text) {
    return Number(text.size()) + text;
}

// A journal that an older desk left is read by the next one.
TEST_F(EditJournalTest, AFileIsMadeOfNumbersAndTextsAfterTheirHash) {
    KeptChange change = Titled(2, "Rivers");
    change.isNew = true;
    EditJournal journal(Folder(), place_.Path());
    journal.Write(change);
    const std::string entry = Number(2) + Number(1) + Number(0) + Number(34) + Sized(kLeader) +
                              Number(2) + Sized("001") + Sized("x") + Sized("245") +
                              Sized("10\037aRivers");
    std::ifstream file(File(), std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    EXPECT_EQ(bytes, "quillory journal 1\n" + Number(0x3048D7D56B2AB81E) + Sized(entry));
}

TEST_F(EditJournalTest, TheSignOfARecordIsThatOfItsTextAlone) {
    EditSession::State state = Titled(1, "One").state;
    const std::uint64_t sign = SignOf(state);
    state.fields[0].given = 3;
    state.leader.replace(0, 5, "00123");
    EXPECT_EQ(SignOf(state), sign);
    state.fields[1].content += '.';
    EXPECT_NE(SignOf(state), sign);
}

}  // namespace
}  // namespace quillory

#include <quillory/jobs/EditStore.h>
#include <quillory/jobs/StoreJobs.h>
#include <quillory/jobs/StoredItems.h>
#include <quillory/store/RecordLocks.h>
#include <quillory/store/Schema.h>

#include <tests/quillory/edits/EditFixture.h>
#include <tests/quillory/jobs/JobsFixture.h>

namespace quillory {
namespace {

constexpr const char* kOne = "=LDR  00061nam\\a2200049\\i\\4500\n=001  n1\n=245  00$aOne\n\n";
constexpr const char* kTwo = "=LDR  00061nam\\a2200049\\i\\4500\n=001  n2\n=245  00$aTwo\n\n";
constexpr const char* kDamaged = "=LDR  00000nam a2200000 i 4500\n=24\n\n";

class StoreJobs : public Jobs {
protected:
    Status Add(const std::string& mrk, const std::string& rejects = {}) {
        AddOptions options;
        options.input.files = {File("in.mrk", mrk)};
        options.rejects = rejects;
        return AddRecordsToStore(options, reporter_);
    }
    std::string Exported(const RecordIds& ids, Status status) {
        StoreExportOptions options{{ids}, {}};
        options.output.output = folder_.Path("out.mrk");
        EXPECT_EQ(ExportRecordsOfStore(options, reporter_), status);
        return folder_.Read("out.mrk");
    }
};

TEST_F(StoreJobs, RecordsComeOutAsTheyWentIn) {
    EXPECT_EQ(Add(std::string(kOne) + kTwo), kStatusWell);
    EXPECT_EQ(Said(), "2 records added, IDs 1 to 2\n");
    EXPECT_EQ(Exported({}, kStatusWell), std::string(kOne) + kTwo);
    Said();
    EXPECT_EQ(Exported({2, 9, 1}, kStatusFindings), std::string(kTwo) + kOne);
    EXPECT_EQ(Said(), "there is no record 9 in the store\n2 records written\n");
    EXPECT_EQ(DeleteRecordsFromStore({{1, 9, 1}}, reporter_), kStatusFindings);
    EXPECT_EQ(Said(),
              "there is no record 9 in the store\nthere is no record 1 in the store\n"
              "1 record deleted\n");
    EXPECT_EQ(Add(kOne), kStatusWell);
    EXPECT_EQ(Exported({}, kStatusWell), std::string(kTwo) + kOne);
}

TEST_F(StoreJobs, DamageIsNamedAndKeptAndTheRestAdded) {
    const std::string rejects = folder_.Path("rejects.mrk");
    EXPECT_EQ(Add(std::string(kOne) + kDamaged + kTwo, rejects), kStatusFindings);
    EXPECT_EQ(folder_.Read("rejects.mrk"), kDamaged);
    const std::string said = Said();
    EXPECT_NE(said.find("in.mrk: record 2 at byte "), said.npos) << said;
    EXPECT_NE(said.find("2 records added, IDs 1 to 2\n"), said.npos) << said;
    {
        const Database store = OpenStore();
        store.Execute("UPDATE records SET bytes = x'30' WHERE id = 1");
    }
    EXPECT_EQ(Exported({}, kStatusFindings), kTwo);
    EXPECT_NE(Said().find("quillory.db: record 1 at byte 0 (001 n1): "), std::string::npos);
}

class Edited : public EditReport {
public:
    void TakeRecord(const Item& item, const Edit&) override { ids.push_back(item.number); }
    void Finish(const EditTotals&, bool) override {}

    std::vector<std::uint64_t> ids;
};

TEST_F(StoreJobs, ARecordThatIsBeingChangedInAWindowIsLeftAsItIs) {
    Add(std::string(kOne) + kTwo);
    const auto edit = [this](const std::string& text) {
        Edited edited;
        EditTask task = TaskOf("add", {{"place", "245b"}, {"text", text}});
        const Status status = EditStore({}, std::move(task), edited, reporter_);
        return std::pair(status, edited.ids);
    };
    EXPECT_EQ(edit("More"), std::pair(kStatusWell, std::vector<std::uint64_t>{1, 2}));
    Said();
    RecordLocks window(StorePath());
    ASSERT_TRUE(window.Lock(1));
    const std::string left = "record 1 is left as it is: it is being changed by ";
    const std::string before = Exported({1}, kStatusWell);
    Said();
    EXPECT_EQ(UndoEdits({}, reporter_), kStatusFindings);
    std::string said = Said();
    EXPECT_TRUE(said.starts_with(left) && said.ends_with("\n1 record put back\n")) << said;
    EXPECT_EQ(edit("Again"), std::pair(kStatusFindings, std::vector<std::uint64_t>{2}));
    EXPECT_TRUE(Said().starts_with(left));
    EXPECT_EQ(DeleteRecordsFromStore({{1, 2}}, reporter_), kStatusFindings);
    said = Said();
    EXPECT_TRUE(said.starts_with(left) && said.ends_with("\n1 record deleted\n")) << said;
    EXPECT_EQ(Exported({}, kStatusWell), before);
    window.UnlockAll();
    EXPECT_EQ(DeleteRecordsFromStore({{1}}, reporter_), kStatusWell);
}

TEST_F(StoreJobs, TheStoreIsNotOverwritten) {
    Add(kOne);
    const std::string store = folder_.Read("home/quillory.db");
    const std::string reason =
        StorePath() + ": this is a file of the store, which would be overwritten";
    StoreExportOptions options;
    options.output.output = StorePath();
    EXPECT_EQ(ErrorOf([&] { ExportRecordsOfStore(options, reporter_); }), reason);
    EXPECT_EQ(ErrorOf([&] { Add(kTwo, StorePath()); }), reason);
    std::filesystem::create_symlink(StorePath(), folder_.Path("link"));
    EXPECT_NE(ErrorOf([&] { Add(kTwo, folder_.Path("link")); }), "");
    EXPECT_EQ(folder_.Read("home/quillory.db"), store);
}

TEST_F(StoreJobs, ReadingMakesNoStore) {
    EXPECT_EQ(Exported({}, kStatusWell), "");
    EXPECT_EQ(Exported({1}, kStatusFindings), "");
    EXPECT_FALSE(IsThere("home"));
}

TEST_F(StoreJobs, WhatWasAddedBeforeAFailureIsSaid) {
    Add(kOne);
    Said();
    AddOptions options;
    options.input.files = {folder_.Path("in.mrk"), folder_.Path("gone.mrk")};
    EXPECT_NE(ErrorOf([&] { AddRecordsToStore(options, reporter_); }), "");
    EXPECT_EQ(Said(), "");
    folder_.Write("home/quillory.db", "no database " + std::string(2000, '.'));
    EXPECT_EQ(ErrorOf([&] { Add(kOne); }), StorePath() + ": is not a database");
}

}  // namespace
}  // namespace quillory

#include <quillory/jobs/StoredRecords.h>
#include <quillory/store/RecordHistory.h>
#include <quillory/store/Schema.h>
#include <quillory/store/Summary.h>

#include <optional>
#include <tests/quillory/Records.h>
#include <tests/quillory/jobs/JobsFixture.h>
#include <unistd.h>

namespace quillory {
namespace {

class StoredRecordsTest : public Jobs {
protected:
    // The store as another program has it.
    static std::string TitleOf(std::int64_t id) {
        const Database database = OpenStore();
        const auto stored = RecordStore(database).Find(id);
        return stored ? stored->summary.title : "none";
    }
    static void Run(const std::string& sql) { OpenStore().Execute(sql); }

    static void Put(RecordSet& records, std::size_t index, const std::string& title) {
        const TestRecord record({"24500\037a" + title});
        Item item;
        records.ReadToEdit(index, item);
        records.Replace(index, record.record);
    }
    // As a program does that knows no locks.
    static void Replace(std::int64_t id, const std::string& title) {
        const std::string bytes = MarcOf({"LDR00000nam a2200000 a 4500", "24500\037a" + title});
        const Database database = OpenStore();
        RecordHistory history(database);
        EXPECT_TRUE(history.Replace(id, {{"", title, "am"}, bytes}, history.NextEdit(), "test"));
    }
    static void Add(RecordSet& records, const std::string& title) {
        const TestRecord record({"24500\037a" + title});
        records.Add(record.record);
    }
    static std::string Title(RecordSet& records, std::size_t index) {
        Item item;
        records.Read(index, item);
        return std::string(item.record.fields.at(0).content.substr(4));
    }
};

TEST_F(StoredRecordsTest, WhatIsAddedAndChangedIsSavedTogetherAndKeepsItsHistory) {
    StoredRecords records;
    EXPECT_EQ(records.Size(), 0U);
    for (const char* title : {"One", "Two", "Three"}) Add(records, title);
    EXPECT_EQ(records.Changes(), 3U);
    EXPECT_EQ(TitleOf(1), "none");
    records.RemoveLast();
    records.Save();
    EXPECT_EQ(records.Changes(), 0U);
    EXPECT_EQ(TitleOf(2), "Two");
    Run("DELETE FROM records WHERE id = 1");
    StoredRecords again;
    ASSERT_EQ(again.Size(), 1U);
    EXPECT_EQ(again.NumberOf(0), 2U);
    EXPECT_EQ(again.IndexOf(2), 0U);
    EXPECT_FALSE(again.IndexOf(1));
    Put(again, 0, "Two, changed");
    EXPECT_EQ(Title(again, 0), "Two, changed");
    Add(again, "Four");
    EXPECT_FALSE(again.IndexOf(again.NumberOf(1)));
    again.Save();
    EXPECT_EQ(TitleOf(2), "Two, changed");
    EXPECT_EQ(TitleOf(3), "Four");
    Put(again, 1, "Four, changed");
    again.Save();
    EXPECT_EQ(TitleOf(3), "Four, changed");
    const Database database = OpenStore();
    const auto former = RecordHistory(database).VersionsOf(2);
    ASSERT_EQ(former.size(), 1U);
    EXPECT_EQ(former[0].change, "edited at the desk");
}

TEST_F(StoredRecordsTest, ARecordThatAnotherProgramHasChangedIsNotReplacedNorIsAnyOther) {
    StoredRecords records;
    for (const char* title : {"One", "Two"}) Add(records, title);
    records.Save();
    Put(records, 0, "Mine");
    Put(records, 1, "Mine, too");
    Replace(2, "Theirs");
    EXPECT_NE(ErrorOf([&] { records.Save(); }).find("record 2: another program has changed it"),
              std::string::npos);
    EXPECT_EQ(TitleOf(1), "One");
    EXPECT_EQ(TitleOf(2), "Theirs");
    EXPECT_EQ(Title(records, 1), "Mine, too");
    records.Discard(1);
    records.Save();
    EXPECT_EQ(TitleOf(1), "Mine");
}

TEST_F(StoredRecordsTest, ARecordIsHeldFromItsFirstChangeUntilItIsSavedOrLetGo) {
    StoredRecords records;
    for (const char* title : {"One", "Two"}) Add(records, title);
    records.Save();
    std::optional<StoredRecords> other(std::in_place);
    Put(records, 0, "Mine");
    EXPECT_TRUE(records.HolderOf(0).empty());
    EXPECT_NE(other->HolderOf(0).find("program " + std::to_string(getpid()) + ", since "),
              std::string::npos)
        << other->HolderOf(0);
    EXPECT_NE(ErrorOf([&] {
                  Put(*other, 0, "Theirs");
              }).find("record 1: it is being changed by " + other->HolderOf(0)),
              std::string::npos);
    EXPECT_FALSE(other->IsChanged(0));
    Put(*other, 1, "Theirs");
    records.Discard(0);
    records.LetGo(0);
    EXPECT_TRUE(other->HolderOf(0).empty());
    Put(*other, 0, "Theirs, too");
    other->Save();
    EXPECT_TRUE(records.HolderOf(0).empty());
    EXPECT_NE(ErrorOf([&] { records.Hold(0); }).find("record 1: another program has changed it"),
              std::string::npos);
    EXPECT_TRUE(other->HolderOf(0).empty());  // the look at it has left no lock
    EXPECT_EQ(Title(records, 0), "Theirs, too");
    Put(*other, 0, "Never saved");
    EXPECT_FALSE(records.HolderOf(0).empty());
    other.reset();
    EXPECT_TRUE(records.HolderOf(0).empty());
    EXPECT_EQ(TitleOf(1), "Theirs, too");
}

TEST_F(StoredRecordsTest, WhatOthersSaveIsFollowedAndNewRecordsKeepTheirPlaces) {
    StoredRecords records;
    for (const char* title : {"One", "Two"}) Add(records, title);
    records.Save();
    EXPECT_FALSE(records.Follow());  // its own work is no news
    Item item;
    records.ReadToEdit(0, item);
    Put(records, 1, "Mine");
    StoredRecords other;
    Put(other, 0, "Theirs");
    Add(other, "Three");
    other.Save();
    EXPECT_TRUE(records.IsOutdated(0));
    EXPECT_FALSE(records.IsOutdated(1));
    EXPECT_TRUE(records.Follow());
    EXPECT_FALSE(records.Follow());
    ASSERT_EQ(records.Size(), 3U);
    EXPECT_EQ(Title(records, 2), "Three");
    Add(records, "My new one");
    Add(other, "Four");
    other.Save();
    EXPECT_TRUE(records.Follow());
    ASSERT_EQ(records.Size(), 4U);
    EXPECT_EQ(Title(records, 3), "My new one");
    records.Save();
    ASSERT_EQ(records.Size(), 5U);
    EXPECT_EQ(Title(records, 3), "My new one");
    EXPECT_EQ(records.NumberOf(3), 5U);
    EXPECT_EQ(Title(records, 4), "Four");
    EXPECT_EQ(records.IndexOf(4), 4U);
    EXPECT_TRUE(other.Follow());
    EXPECT_EQ(other.Size(), 5U);
    EXPECT_EQ(TitleOf(2), "Mine");
}

TEST_F(StoredRecordsTest, ARecordThatAnotherProgramHasDeletedIsDamagedAndSoIsOneThatCantBeRead) {
    StoredRecords records;
    for (const char* title : {"One", "Two", "Three"}) Add(records, title);
    records.Save();
    Run("DELETE FROM records WHERE id = 2");
    Run("UPDATE records SET bytes = x'30' WHERE id = 3");
    Item item;
    for (const std::size_t index : {1U, 2U}) {
        SCOPED_TRACE(index);
        EXPECT_FALSE(records.IsDamaged(index));
        records.Read(index, item);
        EXPECT_EQ(item.kind, kItemDamaged);
        EXPECT_TRUE(records.IsDamaged(index));
        ASSERT_NE(records.FaultAt(index), nullptr);
    }
    EXPECT_EQ(FaultText(*records.FaultAt(1)), "there is no record 2 in the store");
    EXPECT_EQ(Title(records, 0), "One");
}

}  // namespace
}  // namespace quillory

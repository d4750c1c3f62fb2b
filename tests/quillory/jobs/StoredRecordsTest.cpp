#include <quillory/jobs/StoredRecords.h>
#include <quillory/store/RecordHistory.h>
#include <quillory/store/Schema.h>
#include <quillory/store/Summary.h>

#include <tests/quillory/Records.h>
#include <tests/quillory/jobs/JobsFixture.h>

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
    {
        StoredRecords other;
        Put(other, 1, "Theirs");
        other.Save();
    }
    EXPECT_NE(ErrorOf([&] { records.Save(); }).find("record 2: another program has changed it"),
              std::string::npos);
    EXPECT_EQ(TitleOf(1), "One");
    EXPECT_EQ(TitleOf(2), "Theirs");
    EXPECT_EQ(Title(records, 1), "Mine, too");
    records.Discard(1);
    records.Save();
    EXPECT_EQ(TitleOf(1), "Mine");
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

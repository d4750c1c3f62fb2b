#include <quillory/store/RecordHistory.h>
#include <quillory/store/Schema.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/zorby/platform/TemporaryFolder.h>
#include <vector>

namespace quillory {
namespace {

NewRecord Book(const std::string& title) {
    return {{"ocm1", title, "am"}, "bytes of " + title, 0};
}

class RecordHistoryTest : public testing::Test {
protected:
    std::string BytesOf(std::int64_t id) const { return store_.Find(id)->bytes; }
    std::size_t FoundByTitle(const std::string& title) const {
        std::size_t count = 0;
        RecordSelection selection;
        selection.titlePrefix = title;
        store_.Walk(selection, [&count](const StoredRecord&) { return ++count > 0; });
        return count;
    }

    TemporaryFolder folder_;
    Database database_ = OpenStore(folder_.Path("quillory.db"));
    RecordStore store_{database_};
    RecordHistory history_{database_};
};

TEST_F(RecordHistoryTest, KeepsWhatWasBefore) {
    const std::int64_t id = store_.Add(Book("One"));
    EXPECT_EQ(history_.NextEdit(), 1);
    EXPECT_TRUE(history_.Replace(id, Book("Two"), 1, "replace"));
    EXPECT_TRUE(history_.Replace(id, Book("Three"), 2, "case"));
    EXPECT_FALSE(history_.Replace(id + 1, Book("Four"), 2, "case"));
    EXPECT_EQ(history_.NextEdit(), 3);
    EXPECT_EQ(BytesOf(id), "bytes of Three");
    EXPECT_EQ(FoundByTitle("three"), 1U);
    EXPECT_EQ(FoundByTitle("one"), 0U);

    const std::vector<FormerRecord> versions = history_.VersionsOf(id);
    ASSERT_EQ(versions.size(), 2U);
    EXPECT_EQ(versions[0].change + ": " + versions[0].bytes, "case: bytes of Two");
    EXPECT_EQ(versions[1].change + ": " + versions[1].bytes, "replace: bytes of One");
    EXPECT_GT(versions[1].replaced, 1500000000);
}

TEST_F(RecordHistoryTest, UndoGoesBackStepByStep) {
    const std::int64_t one = store_.Add(Book("One"));
    const std::int64_t other = store_.Add(Book("Other"));
    history_.Replace(one, Book("Two"), 1, "replace");
    history_.Replace(other, Book("Another"), 2, "case");
    history_.Replace(one, Book("Three"), 2, "case");
    EXPECT_EQ(history_.RecordsOfLastEdit(), (std::vector<std::int64_t>{other, one}));
    EXPECT_TRUE(history_.Undo(one));
    EXPECT_EQ(BytesOf(one), "bytes of Two");
    EXPECT_EQ(history_.RecordsOfLastEdit(), std::vector<std::int64_t>{other});
    EXPECT_TRUE(history_.Undo(one));
    EXPECT_EQ(BytesOf(one), "bytes of One");
    EXPECT_EQ(FoundByTitle("one"), 1U);
    EXPECT_FALSE(history_.Undo(one));
    EXPECT_EQ(BytesOf(other), "bytes of Another");
}

TEST_F(RecordHistoryTest, GoesWithItsRecord) {
    const std::int64_t id = store_.Add(Book("One"));
    history_.Replace(id, Book("Two"), 1, "replace");
    store_.Delete(id);
    EXPECT_TRUE(history_.VersionsOf(id).empty());
    EXPECT_TRUE(history_.RecordsOfLastEdit().empty());
}

// The form that the store had before it kept what records were.
TEST(RecordHistory, AStoreOfTheFormerFormGetsIt) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("quillory.db");
    std::int64_t id = 0;
    {
        const Database former(path, SchemaSteps().first(2));
        id = RecordStore(former).Add(Book("One"));
    }
    const Database database = OpenStore(path);
    RecordHistory history(database);
    EXPECT_TRUE(history.Replace(id, Book("Two"), history.NextEdit(), "replace"));
    EXPECT_TRUE(history.Undo(id));
    EXPECT_EQ(RecordStore(database).Find(id)->bytes, "bytes of One");
}

}  // namespace
}  // namespace quillory

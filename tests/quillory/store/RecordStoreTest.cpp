#include <quillory/faults/Errors.h>
#include <quillory/store/RecordBatch.h>
#include <quillory/store/Schema.h>
#include <quillory/store/Summary.h>
#include <quillory/text/SearchText.h>

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <tests/zorby/platform/TemporaryFolder.h>
#include <vector>

namespace quillory {
namespace {

class RecordStoreTest : public testing::Test {
protected:
    std::vector<std::int64_t> IdsOf(const RecordSelection& selection) const {
        std::vector<std::int64_t> ids;
        store_.Walk(selection, [&](const StoredRecord& record) {
            ids.push_back(record.id);
            return true;
        });
        return ids;
    }
    std::int64_t AddTitle(const std::string& title, const std::string& number = "") {
        return store_.Add({{number, title, "am"}, "bytes of " + title, 0});
    }

    using Ids = std::vector<std::int64_t>;

    TemporaryFolder folder_;
    Database database_ = OpenStore(folder_.Path("quillory.db"));
    RecordStore store_{database_};
};

TEST_F(RecordStoreTest, KeepsBytesAndSummary) {
    const std::string bytes("r\0e\x1D\xFF", 5);
    const std::int64_t id = store_.Add({{"ocm1", "Title", "am"}, bytes, 0});
    const auto record = store_.Find(id);
    ASSERT_TRUE(record);
    EXPECT_EQ(record->bytes, bytes);
    EXPECT_EQ(record->summary.controlNumber, "ocm1");
    EXPECT_EQ(record->summary.type, "am");
    EXPECT_GT(record->added, 1500000000);

    EXPECT_FALSE(store_.Find(id + 1));

    EXPECT_TRUE(store_.Delete(id));
    EXPECT_FALSE(store_.Delete(id));
    EXPECT_FALSE(store_.Find(id));
    EXPECT_GT(AddTitle("next"), id);
}

TEST_F(RecordStoreTest, BatchesComeInWholeAndInOrder) {
    RecordBatch batch(store_, 10);
    for (int i = 1; i <= 25; ++i) batch.Add({{std::to_string(i), "", ""}, "b", 0});
    batch.Stop();
    EXPECT_EQ(batch.Saved(), 20U);
    EXPECT_EQ(store_.Count(), 20);
    for (int i = 21; i <= 25; ++i) batch.Add({{std::to_string(i), "", ""}, "b", 0});
    batch.Flush();
    batch.Flush();
    EXPECT_EQ(batch.Saved(), 25U);
    EXPECT_EQ(batch.Ids().first, 1);
    EXPECT_EQ(batch.Ids().last, 25);
    RecordSelection tail;
    tail.after = 23;
    EXPECT_EQ(IdsOf(tail), (Ids{24, 25}));
    int seen = 0;
    store_.Walk({}, [&](const StoredRecord&) { return ++seen < 3; });
    EXPECT_EQ(seen, 3);
}

TEST_F(RecordStoreTest, ABatchThatCantBeAddedIsReportedWithTheNext) {
    const Database other(folder_.Path("quillory.db"), SchemaSteps(), std::chrono::milliseconds(1));
    RecordStore store(other);
    RecordBatch batch(store, 2);
    const NewRecord record{{"1", "", ""}, "b", 0};
    batch.Add(record);
    batch.Add(record);
    batch.Stop();
    EXPECT_EQ(batch.Saved(), 2U);
    const Transaction transaction(database_);
    batch.Add(record);
    EXPECT_NO_THROW(batch.Add(record)) << "it is being added";
    batch.Add(record);
    EXPECT_THROW(batch.Add(record), FileError);
    batch.Stop();
    EXPECT_EQ(batch.Saved(), 2U);
    EXPECT_EQ(store_.Count(), 2);
}

TEST_F(RecordStoreTest, ABatchCountsThoughItsNumbersCantBeLookedUp) {
    RecordBatch batch(store_, 2);
    // Records can still be added, but not be found by ID.
    database_.Execute("ALTER TABLE records RENAME COLUMN id TO place");
    for (int i = 0; i < 3; ++i) batch.Add({{"1", "", ""}, "b", 0});
    EXPECT_NO_THROW(batch.Flush());
    EXPECT_EQ(batch.Saved(), 3U);
    EXPECT_EQ(batch.Ids().last, 3);
    EXPECT_EQ(batch.Repeated().count, 0U);
    EXPECT_EQ(store_.Count(), 3);
}

TEST_F(RecordStoreTest, IsFoundByNumberAndByTheBeginningOfTheTitle) {
    const std::string beyondKey = "Proceedings of the international conference on ";
    AddTitle(
        "\xC3\x89"
        "cole",
        "n 1");
    AddTitle("Ecology", "n 2");
    AddTitle("The \xD0\x92\xD0\xBE\xD0\xB9\xD0\xBD\xD0\xB0", "n 1");
    AddTitle(beyondKey + "maps", "");
    AddTitle(beyondKey + "music", "");
    const std::string cyrillic = "\xD0\x96";
    std::string many;  // the key can't end in the middle of a character
    for (int i = 0; i < 20; ++i) many += cyrillic;
    AddTitle("x" + many + " 1");
    AddTitle("x" + many + " 2");
    const std::vector<std::pair<std::string, Ids>> titles{
        {"ECO", {1, 2}},
        {"\xC3\xA9"
         "col",
         {1, 2}},
        {"ecole", {1}},
        {"the \xD0\xB2\xD0\x9E", {3}},
        {"proceedings", {4, 5}},
        {beyondKey + "MUS", {5}},
        {"x" + many + " 2", {7}},
        {"olog", {}},
        {"100%", {}},
        {"", {1, 2, 4, 5, 3, 6, 7}},
    };
    for (const auto& [prefix, ids] : titles) {
        RecordSelection selection;
        selection.titlePrefix = prefix;
        EXPECT_EQ(IdsOf(selection), ids) << prefix;
    }
    RecordSelection selection;
    selection.controlNumber = " n  1 ";
    EXPECT_EQ(IdsOf(selection), (Ids{1, 3}));
    selection.titlePrefix = "the";
    EXPECT_EQ(IdsOf(selection), Ids{3});
    selection.controlNumber = "n";
    EXPECT_TRUE(IdsOf(selection).empty());
}

TEST_F(RecordStoreTest, SearchesGoThroughAnIndex) {
    for (const char* where : {"control_number = 'a'", "title_key >= 'a' AND title_key < 'b'"}) {
        SCOPED_TRACE(where);
        Statement plan = database_.Prepare(
            "EXPLAIN QUERY PLAN SELECT bytes FROM records WHERE "
            "+id > 0 AND " +
            std::string(where));
        ASSERT_TRUE(plan.Step());
        EXPECT_TRUE(plan.Bytes(3).starts_with("SEARCH records USING INDEX")) << plan.Bytes(3);
    }
}

TEST(Summarizer, TakesWhatListsNeed) {
    struct Case {
        const char* leader;
        std::vector<zorby::CommFormatField> fields;
        RecordSummary expected;
    };
    const std::vector<Case> cases{
        {"00000nam a2200000 i 4500",
         {{"001", " ocm  1 "},
          {"245",
           "10\037"
           "6880-01\037"
           "aA :\037"
           "bb /\037"
           "cC.\037"
           "n2,\037"
           "pP"}},
         {"ocm 1", "A : b / 2, P", "am"}},
        {"00000cas  2200000 a 4500",
         {{"245",
           "00\037"
           "a\xE2"
           "Ecole /"}},
         {"",
          "\xC3\x89"
          "cole",
          "as"}},
        {"00000nam a2200000 i 4500",
         {{"245",
           "10\037"
           "a\033[31m\xC2\x9B\377red\n"}},
         {"", "[31m red", "am"}},
        {"00000\0\377 a2200000 i 4500",
         {{"245", "10"},
          {"245",
           "10\037"
           "asecond"}},
         {"", "", ""}},
    };
    Summarizer summarizer;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.fields.front().content);
        const RecordSummary summary =
            summarizer.Summarize({std::string_view(c.leader, 24), c.fields, {}});
        EXPECT_EQ(summary.controlNumber, c.expected.controlNumber);
        EXPECT_EQ(summary.title, c.expected.title);
        EXPECT_EQ(summary.type, c.expected.type);
    }
}

}  // namespace
}  // namespace quillory

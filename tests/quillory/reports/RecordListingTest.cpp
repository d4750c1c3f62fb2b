#include <quillory/faults/Errors.h>
#include <quillory/jobs/RecordFile.h>
#include <quillory/queries/SearchWords.h>
#include <quillory/reports/RecordListing.h>

#include <gtest/gtest.h>

#include <tests/quillory/Records.h>
#include <tests/quillory/exchange/TemporaryFile.h>

namespace quillory {
namespace {

std::string Book(const std::string& title, const std::string& author, const std::string& date) {
    return MarcOf({"LDR00000nam a2200000 a 4500", "008240101s" + date + "    nyu",
                   "1001 \037a" + author + ",\037d1900-", "24510\037a" + title + " /\037cX."});
}

std::vector<std::size_t> Listed(RecordListing& listing) {
    while (listing.Work(1)) {
    }
    std::vector<std::size_t> records;
    for (std::size_t row = 0; row < listing.Size(); ++row) records.push_back(listing.At(row));
    return records;
}

using Records = std::vector<std::size_t>;

TEST(RecordListing, FiltersAndSorts) {
    const TemporaryFile on(Book("Rivers", "Doe", "2023") + Book("\u00C9tangs", "Roe", "1999") +
                           MarcOf({"LDR00000nem a2200000 a 4500", "0012"}) +
                           Book("lakes", "Doe", "2001"));
    RecordFile file(on.Path());
    RecordListing listing(file);
    EXPECT_EQ(Listed(listing), (Records{0, 1, 2, 3}));
    listing.Sort(ListColumn::Title, false);
    EXPECT_EQ(Listed(listing), (Records{1, 3, 0, 2}));  // without a title last
    listing.Sort(ListColumn::Date, true);
    EXPECT_EQ(Listed(listing), (Records{0, 3, 1, 2}));
    EXPECT_EQ(listing.RowOf(1), 2U);
    listing.Filter("doe");
    EXPECT_EQ(Listed(listing), (Records{0, 3}));
    listing.Sort(ListColumn::Author, false);
    EXPECT_EQ(Listed(listing), (Records{0, 3}));  // equal: in the order of the file
    EXPECT_THROW(listing.Filter("245a contians x"), UsageError);
    EXPECT_EQ(Listed(listing), (Records{0, 3}));
    listing.Filter("material = map");
    EXPECT_EQ(Listed(listing), (Records{2}));
    listing.Filter("");
    listing.Sort(ListColumn::Number, true);
    EXPECT_EQ(Listed(listing), (Records{3, 2, 1, 0}));
}

TEST(ListRow, TakesWhatTheRecordSays) {
    ListRows rows;
    const TestRecord book({"LDR00000nam a2200000 a 4500", "008240101s19uu    nyu",
                           "7001 \037aDoe, Jane,\037d1900-", "24514\037aThe rivers :\037bx /"});
    const ListRow row = rows.RowOf(book.record);
    EXPECT_EQ(row.title, "The rivers : x");
    EXPECT_EQ(row.author, "Doe, Jane");
    EXPECT_EQ(row.date, "19uu");
    EXPECT_EQ(row.material, "books");
    const TestRecord bare({"LDR00000nam a2200000 a 4500", "260  \037c[1999?]"});
    EXPECT_EQ(rows.RowOf(bare.record).date, "[1999?]");
}

TEST(ExpressionOf, TakesWordsAndExpressions) {
    const struct {
        const char* typed;
        const char* expression;
    } cases[] = {
        {"", ""},
        {"  ", ""},
        {"rivers", "XXX contains \"rivers\""},
        {"rivers 1999", "XXX contains \"rivers\" and XXX contains \"1999\""},
        {"\"to be or\" not", "XXX contains \"to be or\" and XXX contains \"not\""},
        {"say\"cheese\"", "XXX contains \"say\"\"cheese\"\"\""},
        {"has 245", "has 245"},
        {"245a contains rivers", "245a contains rivers"},
        {"245a contians \"x\" and has 500", "245a contians \"x\" and has 500"},
        {"650 =", "650 ="},
        {"245", "XXX contains \"245\""},
        {"not valid", "not valid"},
    };
    for (const auto& [typed, expression] : cases) EXPECT_EQ(ExpressionOf(typed), expression);
}

}  // namespace
}  // namespace quillory

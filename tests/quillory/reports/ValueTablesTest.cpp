#include <quillory/reports/ValueTables.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/quillory/Records.h>
#include <tests/quillory/exchange/TemporaryFile.h>
#include <tests/quillory/jobs/MemoryPort.h>

namespace quillory {
namespace {

const std::string kRecords = MarcOf({kLeaderLine, "001a", "24510\037aThe \"old\"\tman,\037band",
                                     "650 0\037aX", "650 0\037aY\037xZ"}) +
                             MarcOf({kLeaderLine, "001b",
                                     "24510\037a\"Q\"\037bl\xE2"
                                     "ete"});

std::string Extract(const std::string& fields, TableOptions table, Status expected = kStatusWell,
                    const std::string& bytes = kRecords) {
    const TemporaryFile in(bytes);
    const TemporaryFile out({}, table.format == kTableByName ? table.output : "");
    table.output = out.Path();
    MemoryPort port;
    Reporter reporter(port, {});
    const auto sink = MakeValueTable(table);
    EXPECT_EQ(ExtractFiles({.input = {.files = {in.Path()}}, .fields = fields}, *sink, reporter),
              expected);
    return out.Read();
}

TEST(ValueTables, AreQuotedWhereTheirTextCallsForIt) {
    EXPECT_EQ(Extract("001, 245a 650a", {.format = kTableTsv}),
              "001\t245a\t650a\n"
              "a\t\"The \"\"old\"\"\tman,\"\tX; Y\n"
              "b\t\"\"\"Q\"\"\"\t\n");
    EXPECT_EQ(Extract("001,650a", {.output = ".csv.gz", .separator = ", "}).substr(0, 2),
              "\x1F\x8B");
    EXPECT_EQ(Extract("001,650a", {.format = kTableCsv, .separator = ","}),
              "001,650a\na,\"X,Y\"\nb,\n");
    EXPECT_EQ(Extract("245b", {.format = kTableCsv, .hasHeader = false}), "and\nl\xC3\xA9te\n");
}

TEST(ValueTables, SubfieldsNamedTogetherAreOneValue) {
    EXPECT_EQ(Extract("650ax,650", {.format = kTableTsv, .hasHeader = false}),
              "X; Y Z\tX; Y Z\n\t\n");
}

TEST(ValueTables, ValuesMayHaveARowEach) {
    EXPECT_EQ(Extract("001,650a,650x", {.format = kTableTsv, .isRowEach = true}),
              "001\t650a\t650x\na\tX\tZ\na\tY\tZ\nb\t\t\n");
    EXPECT_EQ(Extract("001,650a", {.output = ".jsonl", .isRowEach = true}),
              "{\"001\":\"a\",\"650a\":\"X\"}\n{\"001\":\"a\",\"650a\":\"Y\"}\n"
              "{\"001\":\"b\",\"650a\":null}\n");
    EXPECT_EQ(Extract("650a,leader/06", {.format = kTableJsonl}),
              "{\"650a\":[\"X\",\"Y\"],\"leader/06\":[\"a\"]}\n"
              "{\"650a\":[],\"leader/06\":[\"a\"]}\n");
}

TEST(ValueTables, DamageIsNamedAndTheRestGoesOn) {
    EXPECT_EQ(Extract("001", {.format = kTableTsv}, kStatusFindings, "00030 bad\035" + kRecords),
              "001\na\nb\n");
    EXPECT_EQ(Extract("001", {.format = kTableTsv}, kStatusFindings, ""), "001\n");
    EXPECT_THROW(Extract("24z", {}), UsageError);
}

}  // namespace
}  // namespace quillory

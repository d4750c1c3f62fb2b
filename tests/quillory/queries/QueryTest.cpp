#include <quillory/faults/FaultCode.h>
#include <quillory/queries/Query.h>

#include <gtest/gtest.h>

#include <random>
#include <tests/quillory/Records.h>

namespace quillory {
namespace {

const Lines kBook{"LDR00000nam a2200000 a 4500",
                  "001bk1",
                  "00520240531120000.0",
                  "008990102s1999    nyua          001 0 eng d",
                  "1001 $aDe\xCC\x81sire\xCC\x81\x65, Anna",
                  "24510$aRivers of \xC3\x89urope :$ba survey /$cA. D. ",
                  "264 1$aNew York,$c[199-?], c1999.",
                  "300  $a304 p. :$c23.5 cm",
                  "650 0$aRivers$zEurope.",
                  "650 0$aWater-supply",
                  "85640$uhttp://x.org/a*b?"};
const Lines kMap{"LDR00000cem  2200000 a 4500",
                 "001mp1",
                 "007aj canzn",
                 "008240601m19uu2004fr        a  0      fre d",
                 "24500$aCarte de l'\xE2\x65tranger",
                 "500  $a100% \x1B(3ABG\x1B(B end"};

std::string Matching(const std::string& expression, bool exact = false) {
    QueryReading reading = ParseQuery(expression, {exact});
    if (!reading.query) return CaretText(expression, reading.fault);
    reading.query->SetValidity([](const Record& record) { return record.fields.size() > 7; });
    const TestRecord book(kBook, '$');
    const TestRecord map(kMap, '$');
    const TestRecord bare;
    std::string matching;
    if (reading.query->Matches(book.record)) matching += "book ";
    if (reading.query->Matches(map.record)) matching += "map ";
    if (reading.query->Matches(bare.record)) matching += "bare ";
    return matching;
}

TEST(Query, TellsRecords) {
    const std::pair<const char*, const char*> cases[] = {
        {"has 650", "book "},
        {"not has 856u", "map bare "},
        {"has 500, 650", "book map "},
        {"has 650[2]", "book "},
        {"has 650[3]", ""},
        {"has 6XXz", "book "},
        {"has 600-699", "book "},
        {"has leader/06", "book map bare "},
        {"HAS 650 AND NOT HAS 500", "book "},
        {"245a = \"rivers of europe :\"", "book "},
        {"245a = 'Rivers of Europe'", ""},
        {"245c = \"a. d.\"", "book "},
        {"245 starts \"rivers of\" and 245 ends 'd.'", "book "},
        {"245a contains EUROPE", "book "},
        {"245 contains \"europe : a\"", "book "},
        {"245a contains \"l'\xC3\xA9tranger\"", "map "},
        {"100a contains desiree", "book "},
        {"100a contains \"De\xCC\x81sir\xC3\xA9\x65\"", "book "},
        {"500 contains \"\xD8\xA1\xD8\xA2\xD8\xA7 end\"", "map "},
        {"008/35-37 = fre", "map "},
        {"008/35-37 != fre", "book bare "},
        {"245/1 = 1 and 245/2 = '0'", "book "},
        {"650/1 = \" \"", "book "},
        {"650/1 = '#'", "book "},
        {"leader/09 = ''", "map "},
        {"008/18-21 = a", "book "},
        {"008/15-17 starts ny", "book "},
        {"300a > 300", "book "},
        {"300c < 23.6 and 300c > 23.4", "book "},
        {"264c >= 1999 and 264c <= 1999", "book "},
        {"264c < 1999", ""},
        {"008/07-10 < 2000", "book "},
        {"008/11-14 = 2004", "map "},
        {"005 >= 2024-05 and 005 < 2024-06", "book "},
        {"005 > 2023", "book "},
        {"005 = 20240531120000.0", "book "},
        {"008/00-05 > 2000", "map "},
        {"008/00-05 <= 1999-01-02", "book "},
        {"count(650) > 1", "book "},
        {"count(245ab) = 2", "book "},
        {"count(650, 500) >= 1", "book map "},
        {"count(650)=0", "map bare "},
        {"material = map", "map "},
        {"material = \"Maps\"", "map "},
        {"material != books", "map "},
        {"valid", "book "},
        {"not valid and has 245", "map "},
        {"245a matches '^rivers\\s+of'", "book "},
        {"245a matches '\\S\xC3\xA9TRANGER$'", "map "},
        {"500a matches '[0-9]+%'", "map "},
        {"245a like '*europe*'", "book "},
        {"245a like 'riv*eu?ope'", "book "},
        {"245a like 'of?europe'", "book "},
        {"856u like 'a\\*b\\?'", "book "},
        {"500 like '\\*'", ""},
        {"245a like ''", ""},
        {"has 650 or has 500 and has 007", "book map "},
        {"(has 650 or has 500) and has 007", "map "},
        {"not (has 650 or has 500)", "bare "},
        {"not not has 500", "map "},
        {"not has 500 and has 001", "book "},
        {"245 contains '''etr' or 245 contains \"l'etr\"", "map "},
        {"245a contains \"\"", "book map "},
        {"245a=\"x\"or(has 650)", "book "},
    };
    for (const auto& [expression, matching] : cases) {
        SCOPED_TRACE(expression);
        EXPECT_EQ(Matching(expression), matching);
    }
}

TEST(Query, ExactComparesCaseAndDiacritics) {
    const std::pair<const char*, const char*> cases[] = {
        {"245a contains Rivers", "book "},
        {"245a contains rivers", ""},
        {"245a contains \"\xC3\x89urope\"", "book "},
        {"245a contains \"E\xCC\x81urope\"", "book "},
        {"100a contains \"D\xC3\xA9sir\"", "book "},
        {"245a contains Europe", ""},
        {"245a contains \"\xC3\xA9tranger\"", "map "},
        {"245a matches 'rivers'", ""},
        {"245a matches '(?i)rivers'", "book "},
    };
    for (const auto& [expression, matching] : cases) {
        SCOPED_TRACE(expression);
        EXPECT_EQ(Matching(expression, true), matching);
    }
}

// The last line of a fault has a caret under what is meant.
TEST(Query, ShowsItsFaults) {
    const struct {
        std::string expression;
        FaultCode code;
        std::size_t offset;
        std::size_t length;
    } faults[] = {
        {"", FaultCode::kQueryExpected, 0, 0},
        {"  ", FaultCode::kQueryExpected, 2, 0},
        {"has", FaultCode::kQueryExpected, 3, 0},
        {"has title", FaultCode::kQueryExpected, 4, 5},
        {"jazz", FaultCode::kQueryWordAlone, 0, 4},
        {"has 650 and \"old rivers\"", FaultCode::kQueryWordAlone, 12, 12},
        {"not and", FaultCode::kQueryExpected, 4, 3},
        {"title = x", FaultCode::kQueryExpected, 0, 5},
        {"has 65", FaultCode::kNoPlace, 4, 2},
        {"has 650 and has 699-600 or valid", FaultCode::kRangeBackwards, 16, 7},
        {"245a containz \"x\"", FaultCode::kQueryExpected, 5, 8},
        {"245a contains", FaultCode::kQueryExpected, 13, 0},
        {"245a contains or", FaultCode::kQueryExpected, 14, 2},
        {"245a contains old rivers", FaultCode::kQueryExpected, 18, 6},
        {"245a contains \"old rivers", FaultCode::kQueryTextNotClosed, 14, 11},
        {"245a < \"QA76\"", FaultCode::kQueryNotComparable, 7, 6},
        {"245a < 2024-5", FaultCode::kQueryNotComparable, 7, 6},
        {"(has 650", FaultCode::kQueryExpected, 8, 0},
        {"has 650)", FaultCode::kQueryExpected, 7, 1},
        {"count 650 > 3", FaultCode::kQueryExpected, 6, 3},
        {"count(650) > many", FaultCode::kQueryExpected, 13, 4},
        {"count(650) > 99999999999999999999", FaultCode::kQueryExpected, 13, 20},
        {"count(650) contains 3", FaultCode::kQueryExpected, 11, 8},
        {"material = mapp", FaultCode::kQueryNoMaterial, 11, 4},
        {"material > map", FaultCode::kQueryExpected, 9, 1},
        {"245a matches '['", FaultCode::kQueryBadPattern, 13, 3},
        {"245a = \xC3(", FaultCode::kQueryNotUtf8, 7, 1},
        {std::string(100000, '('), FaultCode::kQueryTooDeep, 200, 1},
    };
    for (const auto& expected : faults) {
        SCOPED_TRACE(expected.expression.substr(0, 80));
        const QueryReading reading = ParseQuery(expected.expression);
        EXPECT_FALSE(reading.query);
        EXPECT_EQ(reading.fault.code, expected.code);
        EXPECT_EQ(reading.fault.offset, expected.offset);
        EXPECT_EQ(reading.fault.length, expected.length);
    }
    EXPECT_EQ(Matching("245a containz \"x\""),
              "expected one of: =, !=, <, <=, >, >=, contains, starts, ends, like, matches, but "
              "found \"containz\"\n"
              "    245a containz \"x\"\n"
              "         ^~~~~~~~");
    EXPECT_EQ(Matching("material = mpas").substr(0, 48),
              "there is no material \"mpas\"; did you mean maps, ");
}

TEST(Query, HostileExpressionsEnd) {
    std::string nots, ands = "valid", ors = "has 650", quotes = "245a = ";
    for (int i = 0; i < 100000; ++i) nots += "not ";
    for (int i = 0; i < 20000; ++i) ands += " and valid";
    for (int i = 0; i < 20000; ++i) ors += " or has 650";
    quotes += std::string(100001, '"');
    EXPECT_EQ(Matching(nots + "valid"), "book ");
    EXPECT_EQ(Matching(ands), "book ");
    EXPECT_EQ(Matching(ors), "book ");
    ParseQuery(quotes);
    ParseQuery("245a matches '" + std::string(1000000, '(') + "'");
    ParseQuery("245a matches '((a{1000}){1000}){1000}'");
    EXPECT_EQ(Matching("500a matches '(a|a)*(a|aa)*b' or has 001"), "book map ");
    EXPECT_EQ(Matching("245a contains '" + std::string(1000000, 'a') + "'"), "");
}

TEST(Query, AnyBytesAreReadOrRefused) {
    std::mt19937 random(1);
    const std::string pieces[] = {
        "has ",   "650",  "245a ",     "not ",     "and ",   "or ", "(",  ")", "= ",
        "\"",     "'",    "contains ", "matches ", "count(", "> ",  "3 ", ",", "material ",
        "valid ", "\xC3", "\xA9",      "[2]",      "-",      "*",   "\\", "x"};
    std::uniform_int_distribution<std::size_t> piece(0, std::size(pieces) - 1);
    int queries = 0;
    for (int round = 0; round < 50000; ++round) {
        std::string expression;
        for (int left = round % 12; left >= 0; --left) expression += pieces[piece(random)];
        const QueryReading reading = ParseQuery(expression);
        queries += reading.query ? 1 : 0;
        ASSERT_NE(reading.query.has_value(), static_cast<bool>(reading.fault)) << expression;
        ASSERT_LE(reading.fault.offset + reading.fault.length, expression.size()) << expression;
    }
    EXPECT_GT(queries, 150);
}

std::string HitsOf(const char* expression, const Lines& lines) {
    Query query = *ParseQuery(expression).query;
    const TestRecord record(lines, '$');
    std::string text;
    if (!query.Matches(record.record)) return "none";
    for (const QueryHit& hit : query.HitsIn(record.record)) {
        std::string marked = hit.text;
        for (auto range = hit.ranges.rbegin(); range != hit.ranges.rend(); ++range) {
            marked.insert(range->end, ">").insert(range->begin, "<");
        }
        text += PlaceText(hit.place) + "=" + marked + "|";
    }
    return text;
}

TEST(Query, ShowsWhatItFound) {
    EXPECT_EQ(HitsOf("245a contains eUr", kBook), "245 $a=Rivers of <\xC3\x89ur>ope :|");
    EXPECT_EQ(HitsOf("100a contains re", kBook), "100 $a=D\xC3\xA9si<r\xC3\xA9>e, Anna|");
    EXPECT_EQ(HitsOf("6XX contains e and has 001", kBook),
              "650=Riv<e>rs <E>urop<e>.|650[2]=Wat<e>r-supply|001=bk1|");
    EXPECT_EQ(HitsOf("has 500 or 245c = 'a. d.'", kBook), "245 $c=<A. D.> |");
    EXPECT_EQ(HitsOf("245a starts riv and 245a ends ':' and not has 500", kBook),
              "245 $a=<Riv>ers of \xC3\x89urope :|245 $a=Rivers of \xC3\x89urope <:>|");
    EXPECT_EQ(HitsOf("245a matches '[a-z]+'", kMap), "245 $a=<Carte> <de> <l>'<\xC3\xA9tranger>|");
    EXPECT_EQ(HitsOf("245a like '*e'", kBook), "245 $a=<Rive><rs of \xC3\x89><urope> :|");
    EXPECT_EQ(HitsOf("245a like 'of*eu'", kBook), "245 $a=Rivers <of \xC3\x89u>rope :|");
    EXPECT_EQ(HitsOf("300a > 3", kBook), "300 $a=304 p. :|");
    EXPECT_EQ(HitsOf("not has 900", kBook), "");
    EXPECT_EQ(HitsOf("500 contains \xD8\xA1", kMap), "500=100% <\xD8\xA1>\xD8\xA2\xD8\xA7 end|");
}

}  // namespace
}  // namespace quillory

#include <quillory/faults/Errors.h>
#include <quillory/rules/Inspector.h>
#include <quillory/text/Utf8.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <tests/quillory/Records.h>
#include <tests/quillory/checks/DictionariesInForce.h>
#include <utility>

namespace quillory {
namespace {

const std::string k008 = "990101s1999    nyua          001 0 eng d";

// A record with which nothing is wrong, with "$" for the delimiter.
const Lines kSound{
    "001x1",
    "00520210101101010.0",
    "008" + k008,
    "020  $a9780596000271$q(paperback)",
    "040  $aDLC$beng$cDLC",
    "1001 $aTwain, Mark.",
    "24510$aRoughing it /$cby Mark Twain.",
    "264 1$aNew York :$bHarper,$c1999.",
    "300  $a304 pages :$billustrations ;$c21 cm",
    "336  $atext$btxt$2rdacontent",
    "337  $aunmediated$bn$2rdamedia",
    "338  $avolume$bnc$2rdacarrier",
    "650 0$aWest (U.S.)$xHistory.",
    "85640$uhttps://example.org/a",
};

class InspectorTest : public testing::Test {
protected:
    static const CodeLists& Lists() {
        static const CodeLists lists{CodeStatus(CODES_FILE)};
        return lists;
    }

    // What is found on a record, as "indicator-undefined 245/1; ...".
    static std::string Found(Inspector& inspector, const Record& record, std::uint64_t number = 1) {
        std::vector<Remark> remarks;
        inspector.Inspect(record, number, remarks);
        std::string text;
        for (const Remark& remark : remarks) {
            text += (text.empty() ? "" : "; ") + std::string(remark.rule->name);
            const std::string place = PlaceText(remark.place);
            if (!place.empty()) text += " " + place;
        }
        return text;
    }

    static std::string Found(const Record& record, const RuleChoice& choice = {}) {
        Inspector inspector({}, RuleWeights(choice), Lists());
        return Found(inspector, record);
    }

    // What is said first of a record.
    static std::string FirstLine(Inspector& inspector, const Lines& lines) {
        std::vector<Remark> remarks;
        const TestRecord test(lines, '$');
        inspector.Inspect(test.record, 1, remarks);
        return remarks.empty() ? "nothing" : RemarkLine(remarks.front());
    }

    // The sound record, without the fields of some tags (by three digits each), and with others.
    static std::string FoundIn(Inspector& inspector, const std::string& without,
                               const Lines& with) {
        Lines lines;
        for (const std::string& line : kSound) {
            if (without.find(line.substr(0, 3)) == without.npos) lines.push_back(line);
        }
        lines.insert(lines.end(), with.begin(), with.end());
        return Found(inspector, TestRecord(lines, '$').record);
    }

private:
    DictionariesInForce dictionaries_;
};

std::string With008(std::size_t at, const std::string& text) {
    std::string field = k008;
    field.replace(at, text.size(), text);
    return "008" + field;
}

TEST_F(InspectorTest, AllFindingsAreCountedWhereOnlyTheFirstAreKept) {
    Inspector inspector({}, RuleWeights(), Lists());
    inspector.KeepOnly(2);
    std::vector<Remark> remarks;
    const TestRecord test({"001x1", "008" + k008, "500 9$aA", "500 8$aB$jC", "500 7$aD"}, '$');
    for (std::uint64_t number = 1; number <= 2; ++number) {
        SCOPED_TRACE(number);
        inspector.Inspect(test.record, number, remarks);
        std::vector<Remark> undefined;
        std::ranges::copy_if(remarks, std::back_inserter(undefined), [](const Remark& remark) {
            return remark.rule->id == RuleId::IndicatorUndefined;
        });
        ASSERT_EQ(undefined.size(), number == 1 ? 2U : 0U);
        if (number == 1) {
            EXPECT_EQ(undefined[1].found, "the second indicator is 8");
        }
        EXPECT_EQ(RemarkLine(remarks.back()).find("record 1 has the same") != std::string::npos,
                  number == 2);
    }
    const auto counts = inspector.Counts().Rules();
    const auto undefined = std::ranges::find(counts, RuleId::IndicatorUndefined,
                                             [](const RuleCount& count) { return count.rule->id; });
    ASSERT_NE(undefined, counts.end());
    EXPECT_EQ(undefined->count, 6U);
    EXPECT_EQ(undefined->records, 2U);
    EXPECT_EQ(inspector.Counts().Fields().at("500")[static_cast<std::size_t>(Severity::Warning)],
              8U);
}

TEST_F(InspectorTest, EachRuleFindsItsFaultAndNoOther) {
    const struct {
        const char* without;
        Lines with;
        const char* found;
    } kCases[] = {
        {"", {}, ""},
        // What a record is made of.
        {"", {"50091$aNote"}, "indicator-undefined 500/1; indicator-undefined 500/2"},
        {"", {"050 1$aPS1"}, "indicator-obsolete 050/2"},
        {"", {"440 0$aBlue books"}, "field-obsolete 440"},
        {"", {"500  $aNote$zSource"}, "subfield-obsolete 500 $z"},
        {"", {"1041 $aX"}, "undefined 104"},
        {"", {"500  $jX$jY"}, "undefined 500 $j"},
        {"", {"300  $a1 disc :$bx$by$bz"}, "not-repeatable 300[2] $b"},
        {"", {"1001 $aHill, Ann."}, "second-main-entry-100 100[2]"},
        {"", {"24510$aOf rivers"}, "many-titles 245[2] $a"},
        {"", {"590  $jLocal", "9XX  $zOf a system"}, ""},
        {"", {"500  $a$b"}, "undefined 500 $b; field-empty 500"},
        {"", {"500  $a $3Part"}, "subfield-empty 500 $a"},
        {"001040", {}, "no-001 001; no-040 040"},
        {"008", {}, "no-008 008"},
        {"264", {"880 1$6264-00/(N$aM"}, ""},
        {"001", {"001x$a1"}, "subfields-in-control-field 001"},
        // Numbers and addresses.
        {"020", {"020  $a9780596000272"}, "isbn-invalid 020 $a"},
        {"020", {"020  $a978-0-596-00027-1"}, ""},
        {"020", {"020  $a0 596 00027 8 (pbk.)"}, "isbn-with-text 020 $a"},
        {"020", {"020  $a0596000278 500"}, "isbn-with-text 020 $a"},
        {"020", {"020  $a0596000278 (pbk.)", "020  $zwrong"}, "isbn-with-text 020 $a"},
        {"020", {"020  $a080442957X", "020  $c9.95"}, ""},
        {"020", {"020  $a080442957X :$c9.95"}, ""},
        {"", {"022  $a0046-2251"}, "issn-invalid 022 $a"},
        {"", {"022  $a0046-225X", "4900 $aS,$x0046-225X ;$v1"}, ""},
        {"", {"0243 $a9780596000271", "0241 $a036000291453"}, "standard-number-invalid 024[2] $a"},
        {"", {"0242 $aM230671187", "0247 $a10.1000/1$2doi"}, ""},
        {"856", {"85640$uexample.org"}, "url-malformed 856 $u"},
        {"856", {"85640$uhttps://example.org/a b"}, "url-malformed 856 $u"},
        {"856", {"85640$uhttp:/example.org"}, "url-malformed 856 $u"},
        {"856", {"85640$uhttp://https://example.org"}, "url-malformed 856 $u"},
        {"856", {"85640$uhttp://http://x"}, "url-malformed 856 $u"},
        {"856", {"85640$uhttp://HTTPS:"}, "url-malformed 856 $u"},
        {"856", {"85640$uhttp://example.org:/a"}, ""},
        {"856", {"85640$uHTTP://example.org:80", "85640$uurn:isbn:0596000278"}, ""},
        // Titles and series.
        {"245", {"24510$aThe rivers"}, "nonfiling-count 245/2"},
        {"245", {"24515$aThe rivers"}, "nonfiling-count 245/2"},
        {"245", {"24514$aThe rivers"}, ""},
        {"245", {"24515$aThe \"rivers\""}, ""},
        {"245", {"24514$aOne river"}, "nonfiling-count 245/2"},
        {"245", {"24513$aLe fleuve"}, ""},
        {"245", {"24510$aA is for apple"}, ""},
        {"245", {"24510$aThe \u00E9t\u00E9"}, "nonfiling-count 245/2"},
        {"245", {"24514$aThe \u00E9t\u00E9"}, ""},
        {"245", {"24515$aThe \u201Crivers\u201D"}, ""},
        {"245", {"24512$aThe \u00E9t\u00E9"}, "nonfiling-count 245/2"},
        {"245", {"24513$aal-Jabr"}, ""},
        {"245", {"24516$a[The] rivers"}, ""},
        {"245", {"24518$a... The rivers"}, ""},
        {"245008", {"24513$a't Huis", With008(35, "dut")}, ""},
        {"245008", {"24510$a't Huis", With008(35, "dut")}, "nonfiling-count 245/2"},
        {"245008", {"24513$aLa mancha humana", With008(35, "spa")}, ""},
        {"245008", {"24510$aLa mancha humana", With008(35, "spa")}, ""},
        {"245008", {"24514$aLos alamos blancos", With008(35, "spa")}, ""},
        {"245008", {"24512$aLos alamos blancos", With008(35, "spa")}, "nonfiling-count 245/2"},
        {"245008", {"24512$aL'aquila e la serpe", With008(35, "ita")}, ""},
        {"245", {"24512$aA level playing field"}, ""},
        {"245", {"24514$aA level playing field"}, "nonfiling-count 245/2"},
        {"245008", {"24513$aIn-Nazzjon", With008(35, "mlt")}, ""},
        {"245008", {"24513$aas-Safir", With008(35, "ara")}, ""},
        {"245008", {"24513$aA' chailleach", With008(35, "gla")}, ""},
        {"245008", {"24515$aAn t-oileanach", With008(35, "gle")}, ""},
        {"245008", {"24510$aAn t-oileanach", With008(35, "gle")}, "nonfiling-count 245/2"},
        {"245008", {"24518$aAng mga bulaklak", With008(35, "tgl")}, ""},
        {"245008", {"24517$aAng mga bulaklak", With008(35, "tgl")}, "nonfiling-count 245/2"},
        {"245008", {"24513$aIn-Nazzjon", With008(35, "ger")}, "nonfiling-count 245/2"},
        {"245", {"24519$aRiver"}, "nonfiling-count 245/2"},
        {"", {"7300 $aThe rivers"}, ""},
        {"245", {"24500$aRoughing it"}, "title-first-indicator 245/1"},
        {"100", {}, "title-first-indicator 245/1"},
        {"", {"4901 $aBlue books"}, "series-not-traced 490/1"},
        {"", {"4901 $aBlue books", "830 0$aBlue books."}, ""},
        // Other scripts.
        {"245", {"24510$6880-01$aX", "88010$6245-01/(2/r$aY"}, ""},
        {"245", {"24510$6880-01$aX"}, "link-without-partner 245 $6"},
        {"", {"88010$6245-1$aY"}, "link-malformed 880 $6"},
        {"", {"88010$aY"}, "link-malformed 880"},
        {"245", {"24510$6880-01$aX", "88010$6245-01"}, "field-empty 880"},
        {"245", {"24510$6880-01$aX", "88010$6245-01/$aY"}, "link-malformed 880 $6"},
        {"245",
         {"24510$6880-01$aX", "88010$6245-012$aY"},
         "link-malformed 880 $6; link-without-partner 245 $6"},
        {"", {"88010$6245-00/(9$aY"}, "link-malformed 880 $6"},
        {"245",
         {"24510$6880-01$aX", "88010$6245-01/(2/r$a\u041C\u0438\u0440"},
         "script-code-wrong 880 $6"},
        {"245", {"24510$6880-01$aX", "88010$6245-01/(N$a\u041C\u4E2D"}, ""},
        // Coded values.
        {"008", {"008" + k008.substr(1)}, "field-length 008"},
        {"008", {With008(23, "y")}, "code-unknown 008/23"},
        {"008", {With008(32, "1")}, "code-obsolete 008/32"},
        {"008", {With008(35, "xyz")}, "code-unknown 008/35-37"},
        {"008", {With008(0, "990231")}, "date-malformed 008/00-05"},
        {"008", {With008(6, "m20101999")}, "dates-in-wrong-order 008/07-14"},
        {"008", {With008(11, "2000")}, "date-against-type 008/11-14"},
        {"008", {With008(6, "m1999    ")}, "date-against-type 008/11-14"},
        {"008", {With008(6, "c19999999")}, ""},
        {"008", {With008(6, "e19990231")}, ""},
        {"008", {With008(6, "e19990045")}, "date-against-type 008/11-14"},
        {"008", {With008(7, "1989")}, "date-against-imprint 008/07-10"},
        {"008264", {With008(7, "1989"), "264 1$c198[9]"}, ""},
        {"008264", {With008(6, "r19851946"), "264 1$c1946"}, "date-against-imprint 008/07-10"},
        {"008264", {With008(6, "r19851946"), "264 1$c1946", "533  $aMicrofiche.$d1985."}, ""},
        {"008264",
         {With008(6, "r19851946"), "264 1$c1947", "533  $aMicrofiche.$d1985."},
         "date-against-imprint 008/07-10"},
        {"008264", {With008(7, "1989"), "264 1$c[not before 1979?]", "264 4$c\u00A91989"}, ""},
        {"",
         {"504  $aIncludes bibliographical references and index."},
         "note-against-008 008/24-27"},
        {"008", {With008(24, "b"), "504  $aIncludes bibliographies."}, ""},
        {"008", {With008(31, "0"), "500  $aIncludes index."}, "note-against-008 008/31"},
        {"005", {"00520211332101010.0"}, "date-malformed 005"},
        {"005", {"005  "}, "field-empty 005"},
        {"", {"007zz", "007xx"}, "code-unknown 007[2]/00"},
        {"", {"0410 $aeng$aqqq"}, "language-unknown 041 $a"},
        {"", {"0410 $aengscr"}, "language-obsolete 041 $a"},
        {"", {"0411 $afre$heng"}, "language-against-008 041 $a"},
        {"", {"041 7$aen$2iso639-1"}, ""},
        {"", {"044  $anyu$azz9"}, "country-code-unknown 044 $a"},
        {"336", {"336  $atext$btxxt$2rdacontent"}, "media-code-unknown 336 $b"},
        {"",
         {"043  $an-us---$ae-xx---$ae-ur-ru"},
         "area-code-unknown 043 $a; area-code-obsolete 043 $a"},
        {"", {"0452 $bd197$bd1972$bc0221"}, "period-malformed 045 $b"},
        {"", {"0450 $aw5w$aw5w-"}, "period-malformed 045 $a"},
        {"", {"048  $bva01$aoa$axx02", "048 7$azzz$2local"}, "music-code-unknown 048 $a"},
        {"", {"047  $asn$aqq"}, "music-code-unknown 047 $a"},
        {"336", {"336  $aperformed music$bprm$2rdacontent"}, "content-against-type 336 $b"},
        {"336", {"336  $btxt$2rdacontent", "336  $bprm$2rdacontent"}, ""},
        {"338",
         {"338  $bnc$2rdacarrier", "338  $bsd$2rdacarrier"},
         "carrier-against-media 338[2] $b; carrier-without-007 007"},
        {"300337338",
         {"300  $a1 Online Resource", "337  $bn$2rdamedia", "338  $bnc$2rdacarrier"},
         "carrier-against-extent 300 $a"},
        {"008", {With008(23, "o")}, "form-against-carrier 008/23"},
        {"336",
         {"336  $atext$bcri$2rdacontent"},
         "media-term-against-code 336 $a; content-against-type 336 $b"},
        {"336", {"336  $aText$btxt$2rdacontent/ger"}, ""},
    };
    Inspector inspector(
        {},
        RuleWeights({{}, {}, {"final-mark-missing", "control-number-repeated", "number-repeated"}}),
        Lists());
    for (const auto& row : kCases) {
        std::string name = row.without;
        for (const std::string& line : row.with) name += " " + line;
        EXPECT_EQ(FoundIn(inspector, row.without, row.with), row.found) << name;
    }
}

TEST_F(InspectorTest, SaysWhatIsThereAndWhatWouldBeRight) {
    const struct {
        const char* line;
        const char* words;
    } kCases[] = {
        {"24592$aOf rivers",
         "245/1: warning: the first indicator is 9; it can be 0 or 1 [indicator-undefined]"},
        {"500 1$aX",
         "500/2: warning: the second indicator is 1; it can be blank [indicator-undefined]"},
        {"050 1$aPS1",
         "050/2: note: the second indicator is 1, which is obsolete; it can be 0 or 4 "
         "[indicator-obsolete]"},
        {"24510$aThe rivers",
         "245/2: warning: the indicator is 0; the title begins with the article \"The\", so it "
         "would be 4 [nonfiling-count]"},
        {"24514$aMoby Dick",
         "245/2: warning: the indicator is 4; no word begins after \"Moby\"; without an article it "
         "would be 0 [nonfiling-count]"},
        {"650 7$aRivers",
         "650[2]/2: warning: the second indicator is 7, which leaves the source to $2, and the "
         "field has no $2: add $2, or change the indicator [source-missing]"},
        {"8807 $6856-00$uhttp://a.org/",
         "880/1: warning: the first indicator is 7, which leaves the method to $2, and the field "
         "has no $2: add $2, or change the indicator [source-missing]"},
        {"0827 $a551.48",
         "082/1: warning: the first indicator is 7, which leaves the edition to $2, and the field "
         "has no $2: add $2, or change the indicator [source-missing]"},
        {"086  $aA 1.2",
         "086/1: warning: the first indicator is blank, which leaves the source to $2, and the "
         "field has no $2: add $2, or change the indicator [source-missing]"},
        {"1041 $aX", "104: warning: MARC 21 has no field 104 [undefined]"},
        {"500  $aX$DY", "500 $D: warning: field 500 has no subfield $D [undefined]"},
        {"500  $aX$%Y$DZ$%V", "500 $D: warning: field 500 has no subfield $D [undefined]"},
        {"880  $6500-00$aX$jY",
         "880 $j: warning: field 880 for 500 has no subfield $j [undefined]"},
        {"300  $aX$3Y$3Z",
         "300[2] $3: warning: field 300 has only one $3, and this is a further one: join them, or "
         "give a field 300 for each [not-repeatable]"},
        {"001x2",
         "001[2]: warning: a record has only one field 001, and this is a further one: delete one "
         "[not-repeatable]"},
        {"500  $a$3X",
         "500 $a: warning: the subfield has no text: delete it, or give its text "
         "[subfield-empty]"},
        {"440 0$aX",
         "440: note: the format has withdrawn this field; use 490 and 830 [field-obsolete]"},
        {"570  $aX", "570: note: the format has withdrawn this field [field-obsolete]"},
        {"020  $a0596000278$bpaperback",
         "020[2] $b: note: the format has withdrawn this subfield; use $q [subfield-obsolete]"},
        {"020  $a0596000278 (relié)",
         "020[2] $a: note: after the number stands \"(relié)\"; words such as (paperback) go to "
         "$q, a price to $c [isbn-with-text]"},
        {"020  $a0596000279",
         "020[2] $a: warning: 0596000279: the check digit would be 8 [isbn-invalid]"},
        {"020  $aISBN 0596000278",
         "020[2] $a: warning: ISBN 0596000278: the text does not begin with a number "
         "[isbn-invalid]"},
        {"020  $a978\u20130596000271",
         "020[2] $a: warning: 978\u20130596000271: it has other signs [isbn-invalid]"},
        {"020  $a1",
         "020[2] $a: warning: 1: it has 1 digit; there are 10 or 13 in an ISBN [isbn-invalid]"},
        {"022  $a1050 124x", "022 $a: warning: 1050 124x: it would be 1050-124X [issn-invalid]"},
        {"022  $a0046225X", "022 $a: warning: 0046225X: it would be 0046-225X [issn-invalid]"},
        {"022  $a0046-225X (print)",
         "022 $a: warning: 0046-225X: \"(print)\" is no part of an ISSN [issn-invalid]"},
        {"0243 $a9780596000271 (disc)",
         "024 $a: warning: 9780596000271: words such as \"(disc)\" go to $q "
         "[standard-number-invalid]"},
        {"0241 $a036000/1",
         "024 $a: warning: 036000/1: it has other signs "
         "[standard-number-invalid]"},
        {"88010$6245-07$aX",
         "880 $6: warning: \"245-07\" has no partner; the record needs a field 245 with $6 880-07 "
         "[link-without-partner]"},
        {"880  $6500-0$aX",
         "880 $6: warning: \"500-0\" is no link; it would be like 245-01/$1 [link-malformed]"},
        {"880  $6500-00/$aX",
         "880 $6: warning: \"500-00/\" has no code of a script after the stroke; leave the stroke "
         "out, or give a code such as $1 or (N [link-malformed]"},
        {"880  $6500-00/(9/r$aX",
         "880 $6: warning: \"500-00/(9/r\" names the script \"(9\"; the codes of scripts are (3, "
         "(B, $1, (N, (S, (2 and those of ISO 15924 [link-malformed]"},
        {"880  $6500-00/(2/r\u200F$aX",
         "880 $6: warning: \"500-00/(2/r<U+200F>\" goes on after the script; nothing comes there "
         "but /r, for text from right to left [link-malformed]"},
        {"880  $6500-00/(N/left$aX",
         "880 $6: warning: \"500-00/(N/left\" goes on after the script; nothing comes there but "
         "/r, for text from right to left [link-malformed]"},
        {"007s             ",
         "007/01-13: warning: all positions are blank; `quillory codes 007s` lists the codes, and "
         "| says that nothing is coded [code-unknown]"},
        {"043  $a-gx---",
         "043 $a: warning: \"-gx---\" is not in the MARC Code List for Geographic Areas; perhaps "
         "e-gx--- is meant [area-code-unknown]"},
        {"041  $aeng$ascr",
         "041 $a: note: \"scr\" is obsolete; the code is hrv now [language-obsolete]"},
        {"043  $an-us",
         "043 $a: warning: \"n-us\" is not in the MARC Code List for Geographic Areas; perhaps "
         "n-us--- is meant [area-code-unknown]"},
        {"043  $an-us-cb",
         "043 $a: warning: \"n-us-cb\" is not in the MARC Code List for Geographic Areas "
         "[area-code-unknown]"},
        {"007vq", "007: warning: the field has 2 characters; the format has 9 [field-length]"},
        {"0079",
         "007/00: warning: Category of material: \"9\" is no code; `quillory codes 007/00` lists "
         "the codes [code-unknown]"},
        {"007vf cbahoQ",
         "007/08: warning: Configuration of playback channels: \"Q\" is no code; `quillory codes "
         "007v/08` lists the codes [code-unknown]"},
        {"007ha afb0x1baca",
         "007/06-08: warning: Reduction ratio: \"0x1\" does not fit; it is three digits, with - "
         "for one that is not known [code-unknown]"},
    };
    Inspector inspector({}, RuleWeights({{}, {}, {"control-number-repeated", "number-repeated"}}),
                        Lists());
    for (const auto& row : kCases) {
        Lines lines = kSound;
        std::erase_if(lines, [&row](const std::string& line) {
            return line.starts_with("245") && std::string_view(row.line).starts_with("245");
        });
        lines.emplace_back(row.line);
        EXPECT_EQ(FirstLine(inspector, lines), row.words) << row.line;
    }
}

TEST_F(InspectorTest, SaysWhatThePositionsOf008HoldAndWouldHold) {
    const struct {
        std::size_t position;
        const char* value;
        const char* words;
    } kCases[] = {
        {6, " ",
         "008/06: warning: Type of date/Publication status: blank is no code; `quillory codes "
         "008/06` lists the codes "
         "[code-unknown]"},
        {24, "bQ",
         "008/24-27: warning: Nature of contents: \"Q\" in \"bQ  \" is no code; `quillory codes "
         "008a/24-27` lists the codes [code-unknown]"},
        {32, "1",
         "008/32: note: Main entry in body of entry: \"1\" (until 1990) is obsolete; blank goes "
         "there now [code-obsolete]"},
        {15, "cs ",
         "008/15-17: note: Place of publication: \"cs \" is obsolete; the code is xr or xo now "
         "[code-obsolete]"},
        {33, "c",
         "008/33: note: Literary form: \"c\" (until 2008) is obsolete; `quillory codes 008a/33` "
         "lists the codes [code-obsolete]"},
        {35, "xyz",
         "008/35-37: warning: Language: \"xyz\" is no code; `quillory codes 008/35-37` lists the "
         "codes [code-unknown]"},
        {0, "      ", "008/00-05: warning: blank is no day of the form yymmdd [date-malformed]"},
        {6, "m19910701",
         "008/07-14: warning: date 2 (0701) is before date 1 (1991) [dates-in-wrong-order]"},
        {6, "m1999    ",
         "008/11-14: warning: date 2 is blank; with type m it is a year [date-against-type]"},
        {7, "19x9",
         "008/07-10: warning: Date 1: \"19x9\" does not fit; it is four digits, with u for one "
         "that is not known [code-unknown]"},
    };
    Inspector inspector({}, RuleWeights({{}, {}, {"control-number-repeated", "number-repeated"}}),
                        Lists());
    for (const auto& row : kCases) {
        Lines lines = kSound;
        std::ranges::replace_if(
            lines, [](const std::string& line) { return line.starts_with("008"); },
            With008(row.position, row.value));
        EXPECT_EQ(FirstLine(inspector, lines), row.words);
    }
}

// Whatever byte stands wherever: words are UTF-8 without controls.
TEST_F(InspectorTest, WordsCanBeShown) {
    const auto canBeShown = [](std::string_view words) {
        while (!words.empty()) {
            const Utf8Char c = DecodeUtf8(words);
            if (!c.valid || c.codePoint < ' ' || (0x7F <= c.codePoint && c.codePoint < 0xA0)) {
                return false;
            }
            words.remove_prefix(c.size);
        }
        return true;
    };
    Inspector inspector({}, RuleWeights(), Lists());
    std::vector<Remark> remarks;
    std::uint64_t number = 0;
    for (const char* carrier : {"338  $avolume$bnc", "338  $aonline resource$bcr"}) {
        Lines lines = kSound;
        lines.emplace_back("LDR00000nam a2200000 a 4500");
        std::ranges::replace_if(
            lines, [](const std::string& line) { return line.starts_with("338"); }, carrier);
        for (std::string& line : lines) {
            for (std::size_t at = kTagSize; at < line.size(); ++at) {
                for (const char byte : {'\xFF', '\x1B', '\x7F', '\x9B', ' ', '7'}) {
                    const char before = std::exchange(line[at], byte);
                    inspector.Inspect(TestRecord(lines, '$').record, ++number, remarks);
                    for (const Remark& remark : remarks) {
                        EXPECT_TRUE(canBeShown(RemarkLine(remark))) << RemarkLine(remark) << line;
                    }
                    line[at] = before;
                }
            }
        }
    }
}

TEST_F(InspectorTest, MarksAreAskedForWhereTheLeaderPromisesThem) {
    const struct {
        char form;  // Leader/18
        const char* line;
        const char* found;
    } kCases[] = {
        {'a', "24510$aRoughing it /$cby Mark Twain.", ""},
        {'a', "24510$aRoughing it$cby Mark Twain",
         "isbd-mark-missing 245 $a; final-mark-missing 245 $c"},
        {'i', "24510$aRoughing it$cby Mark Twain", "isbd-mark-missing 245 $a"},
        {'c', "24510$aRoughing it$cby Mark Twain", ""},
        {' ', "24510$aRoughing it$cby Mark Twain", ""},
        {'a', "24510$aRoughing it$h[text] :$btravels = Reisen /$c[?]", ""},
        {'a', "24510$aRoughing it$htext /$c[?]", "medium-without-brackets 245 $h"},
        {'a', "24510$aRoughing it.$nPart 1,$pOut west!", ""},
        {'a', "24500$aPapers,$f1939-1973$g(bulk 1950-1955)", ""},
        {'a', "264 1$aNew York ;$aLondon :$bHarper,$c1999.", ""},
        {'a', "264 1$aNew York$aLondon:$bHarper$c1999",
         "isbd-mark-missing 264 $a; isbd-mark-missing 264 $a; isbd-mark-missing 264 $b"},
        {'a', "300  $a304 pages$billustrations$c21 cm",
         "isbd-mark-missing 300 $a; isbd-mark-missing 300 $b"},
        {'a', "4900 $aBooks,$x0046-225X ;$v1", ""},
        {'a', "4900 $aBooks$v1", "isbd-mark-missing 490 $a"},
        {'a', "7001 $aTwain, Mark,$d1835-1910,$eauthor.$4aut", ""},
        {'a', "7001 $aHill, Ann,$d1950-$eauthor.", ""},
        {'a', "7001 $aTwain, Mark$c(Spirit)$d1835-1910",
         "heading-mark-missing 700 $c; final-mark-missing 700 $d"},
        {'a', "65007$aWest$2fast", ""},
        {'a', "650 0$aWest", "final-mark-missing 650 $a"},
        {'a', "500  $aSee https://example.org/a", ""},
        // A letter with a mark, composed, decomposed and in MARC-8; other scripts and marks.
        {'a', "500  $aPar Chass\u00E9", "final-mark-missing 500 $a"},
        {'a', "500  $aPar Chasse\u0301", "final-mark-missing 500 $a"},
        {'a',
         "500  $aPar Chass\xE2"
         "e",
         "final-mark-missing 500 $a"},
        {'a', "500  $aPaa Troms\xB2", "final-mark-missing 500 $a"},
        {'a', "500  $aTver\xA7", ""},
        {'a', "500  $aTver\u02B9", ""},
        {'a', "500  $a\u0417\u0430\u0433\u043B", ""},
        {'a', "500  $aSo \u00ABso\u00BB", ""},
    };
    for (const auto& row : kCases) {
        const TestRecord test({std::string("LDR00000nam  2200000 ") + row.form + " 4500", row.line},
                              '$');
        const RuleChoice marks{{},
                               {"isbd-mark-missing", "medium-without-brackets",
                                "heading-mark-missing", "final-mark-missing"},
                               {}};
        EXPECT_EQ(Found(test.record, marks), row.found) << row.form << row.line;
    }
}

TEST_F(InspectorTest, NothingIsAskedForThatTheMaterialDoesNotHave) {
    const struct {
        const char* leader;
        Lines lines;
        const char* found;
    } kCases[] = {
        {"nam a", {"264 1$aTown$bPress$c1999", "300  $a20 pages$bmaps$c21 cm"}, ""},
        {"nam a",
         {"245  $aT$f1900", "300  $a20 pages"},
         "no-place 260 $a; no-publisher 260 $b; no-date 260 $c; no-physical-details 300 $b; "
         "no-dimensions 300 $c"},
        {"cpcaa", {"245  $aT$f1900", "300  $a3$fboxes"}, ""},
        {"cpcaa", {"245  $aT", "300  $a3$fboxes"}, "no-date 260 $c"},
        {"ntm a", {"245  $aT,$g1900", "300  $a3 leaves$bink"}, "no-dimensions 300 $c"},
        {"cas a", {"264 1$aTown$bPress", "300  $av.$bmaps$c21 cm", "362  $aBegan 1990"}, ""},
        {"cas a", {"264 1$aTown$bPress", "300  $av.$bmaps$c21 cm"}, "no-date 260 $c"},
        {"nam a", {"264 1$aT$bP$c1999", "300  $a1 file$bmaps", "338  $bcr"}, ""},
        {"nam a",
         {"264 1$aT$bP$c1999", "300  $a1 file$bmaps", "338  $bnc"},
         "no-dimensions 300 $c"},
    };
    const RuleChoice asked{
        {}, {"no-place", "no-publisher", "no-date", "no-physical-details", "no-dimensions"}, {}};
    for (const auto& row : kCases) {
        Lines lines{std::string("LDR00000") + row.leader + "2200000 i 4500"};
        lines.insert(lines.end(), row.lines.begin(), row.lines.end());
        EXPECT_EQ(Found(TestRecord(lines, '$').record, asked), row.found) << lines[0] << lines[1];
    }
}

TEST_F(InspectorTest, CharactersAreLookedAtInTheirSet) {
    const struct {
        char coding;  // Leader/09
        const char* text;
        const char* found;
    } kCases[] = {
        {'a', "a\u0301 \u00DF \u4E2D", ""},
        {'a', "\uFFFD", "character-undefined 500 $a"},
        {'a', "\u0378", "character-undefined 500 $a"},
        {'a', "\uE000", "character-undefined 500 $a"},
        {'a', "\302\230The \302\234end", ""},
        {'a', "\xC2\x80", "character-undefined 500 $a"},
        {'a', "1901\u20131910", "outside-marc8 500 $a"},
        {' ', "caf\342e \033(Nabc\033(B", ""},
        {' ', "a\377z", "character-undefined 500 $a"},
        {' ', "\u017Di\u017Eek", "charset-wrong leader/09"},
        {' ', "caf\u00E9 \342e", ""},
        {'0', "\u017Di\u017Eek", ""},
    };
    for (const auto& row : kCases) {
        const TestRecord test({std::string("LDR00000nam ") + row.coding + "2200000 c 4500",
                               std::string("500  $a") + row.text},
                              '$');
        EXPECT_EQ(Found(test.record, {{{"outside-marc8", "note"}},
                                      {"character-undefined", "outside-marc8", "charset-wrong"},
                                      {}}),
                  row.found)
            << row.text;
    }
    const TestRecord dash({"LDR00000nam a2200000 c 4500", "500  $a\u2013"}, '$');
    EXPECT_EQ(Found(dash.record).find("outside-marc8"), std::string::npos);
}

TEST_F(InspectorTest, NumbersThatWereMetAreNamedWithTheirFile) {
    Inspector inspector({}, RuleWeights({{}, {"number-repeated", "control-number-repeated"}, {}}),
                        Lists());
    const TestRecord one({"001a", "020  $a9780596000271 (pbk.)", "035  $a(X)1"}, '$');
    const TestRecord other({"001b", "020  $a9780596000271", "020  $a9780596000271"}, '$');
    EXPECT_EQ(Found(inspector, TestRecord({"020  $a978 0 596 00028 8"}, '$').record, 5), "");
    EXPECT_EQ(Found(inspector, TestRecord({"020  $a978 0 13 110362 7"}, '$').record, 6), "");
    inspector.BeginFile("one.mrc");
    EXPECT_EQ(Found(inspector, one.record, 7), "");
    EXPECT_EQ(Found(inspector, other.record, 9),
              "number-repeated 020 $a; number-repeated 020[2] $a");
    inspector.BeginFile("two.mrc");
    std::vector<Remark> remarks;
    inspector.Inspect(one.record, 3, remarks);
    ASSERT_EQ(remarks.size(), 3U);
    EXPECT_EQ(remarks.back().found, "7 of one.mrc");
    for (int i = 0; i < 5000; ++i) {
        const TestRecord more({"001n" + std::to_string(i)}, '$');
        EXPECT_EQ(Found(inspector, more.record, 10 + static_cast<std::uint64_t>(i)), "") << i;
    }
    EXPECT_EQ(Found(inspector, TestRecord({"001n17"}, '$').record, 6000),
              "control-number-repeated 001");
}

// One with a wrong check digit is another.
TEST_F(InspectorTest, AnIsbnIsTheSameInAllItsForms) {
    Inspector inspector({}, RuleWeights({{}, {"number-repeated"}, {}}), Lists());
    std::uint64_t number = 0;
    const auto found = [&](const std::string& isbn) {
        return Found(inspector, TestRecord({"020  $a" + isbn}, '$').record, ++number);
    };
    EXPECT_EQ(found("0-13-110362-8 (pbk.)"), "");
    EXPECT_EQ(found("080442957X"), "");
    EXPECT_EQ(found("0131103629"), "");
    EXPECT_EQ(found("9790131103628"), "");
    for (const char* isbn : {"0131103628", "9780131103627", "978-0-13-110362-7", "0-8044-2957-x",
                             "978 0 8044 2957 3", "0131103629 :"}) {
        EXPECT_EQ(found(isbn), "number-repeated 020 $a") << isbn;
    }
    const std::vector<std::string> both{"020  $a0306406152", "020  $a9780306406157"};
    EXPECT_EQ(Found(inspector, TestRecord(both, '$').record, ++number), "");
    EXPECT_EQ(Found(inspector, TestRecord(both, '$').record, ++number),
              "number-repeated 020 $a; number-repeated 020[2] $a");
    for (const char* text : {"-", "--", "X", "x", "\u2010-"}) EXPECT_EQ(found(text), "") << text;
}

TEST_F(InspectorTest, BytesAndControlNumbersAreOfAnyFormat) {
    Inspector inspector({}, RuleWeights({{}, {}, {"no-008"}}), Lists());
    const TestRecord holdings({"LDR00000ny  a22000001n 4500", "001h1", "852  $aHill\xFF"}, '$');
    EXPECT_EQ(Found(inspector, holdings.record), "bytes-invalid 852");
    EXPECT_EQ(Found(inspector, holdings.record, 2),
              "bytes-invalid 852; control-number-repeated 001");
    const TestRecord other({"LDR00000ny  a22000001n 4500", "001h2"}, '$');
    EXPECT_EQ(Found(inspector, other.record, 3), "");
}

TEST_F(InspectorTest, UnimarcIsToldOnceAFileAndHeldAgainstNoRule) {
    Inspector inspector({}, RuleWeights(), Lists());
    const std::string coded = "100  $a20010115d1998    m  y0frey50      ba";
    const TestRecord book({"LDR00000nam  2200000   450 ", coded, "2001 $aLe fleuve"}, '$');
    const TestRecord heading({"LDR00000nx  j2200000   450 ", coded, "200 1$aTwain"}, '$');
    const TestRecord marc21({"001x1", "24500$aX$a", "008" + k008, "040  $aDLC$cDLC"}, '$');
    inspector.BeginFile("a");
    EXPECT_EQ(Found(inspector, book.record, 1), "unimarc");
    EXPECT_EQ(Found(inspector, heading.record, 2), "");
    EXPECT_EQ(Found(inspector, marc21.record, 3), "not-repeatable 245 $a; subfield-empty 245 $a");
    EXPECT_EQ(Found(inspector, book.record, 4), "");
    inspector.BeginFile("b");
    EXPECT_EQ(Found(inspector, heading.record, 1), "unimarc");
}

TEST_F(InspectorTest, RulesWeighWhatTheUserSays) {
    const TestRecord test({"001x1", "008" + k008, "24500$aX.$a", "040  $aDLC$cDLC"}, '$');
    EXPECT_EQ(Found(test.record), "not-repeatable 245 $a; subfield-empty 245 $a");
    EXPECT_EQ(Found(test.record, {{}, {}, {"not-repeatable"}}), "subfield-empty 245 $a");
    EXPECT_EQ(Found(test.record, {{}, {"subfield-empty", "no-subjects"}, {}}),
              "subfield-empty 245 $a; no-subjects 600");
    EXPECT_EQ(Found(test.record, {{{"subfield-empty", "off"}, {"no-notes", "note"}}, {}, {}}),
              "not-repeatable 245 $a; no-notes 500");
    EXPECT_THROW(RuleWeights({{{"subfield-emty", "off"}}, {}, {}}), UsageError);
    EXPECT_THROW(RuleWeights({{{"subfield-empty", "fatal"}}, {}, {}}), UsageError);
}

// Of whatever a record is made, nothing is read beyond it, and a second look finds the same.
TEST_F(InspectorTest, AnyBytesCanBeLookedAt) {
    std::mt19937 random(20261122);
    const RuleWeights weights({{}, {}, {"control-number-repeated"}});
    Inspector first({}, weights, Lists());
    Inspector second({}, weights, Lists());
    const std::string kBytes = "\037 0159aZ$-/(.'\"\xC3\xA9\x1B";
    const Lines kTags{"001", "005", "006", "007", "008", "020", "022", "024",
                      "040", "041", "043", "044", "045", "048", "130", "245",
                      "300", "336", "338", "490", "773", "856", "880", "9ZZ"};
    const auto upTo = [&random](std::size_t most) { return random() % (most + 1); };
    for (int i = 0; i < 3000; ++i) {
        Lines lines;
        for (std::size_t fields = upTo(8); fields > 0; --fields) {
            std::string line = kTags[upTo(kTags.size() - 1)];
            for (std::size_t size = upTo(44); size > 0; --size) {
                line += kBytes[upTo(kBytes.size() - 1)];
            }
            lines.push_back(line);
        }
        const TestRecord test(lines);
        EXPECT_EQ(Found(first, test.record), Found(second, test.record)) << "record " << i;
    }
}

}  // namespace
}  // namespace quillory

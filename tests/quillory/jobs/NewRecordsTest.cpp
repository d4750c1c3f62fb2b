#include <quillory/jobs/CatalogFiles.h>
#include <quillory/jobs/MakeRecord.h>
#include <quillory/jobs/MakeWorkform.h>
#include <quillory/store/Schema.h>

#include <tests/quillory/jobs/JobsFixture.h>

namespace quillory {
namespace {

using Sets = std::vector<std::pair<const char*, const char*>>;

std::vector<Entry> Entries(const Sets& sets) {
    std::vector<Entry> entries;
    for (const auto& [place, text] : sets) entries.push_back(ReadEntry(place, text));
    return entries;
}

class NewRecordJobs : public Jobs {
protected:
    // The record in line form.
    std::string Made(const std::string& workform, const Sets& sets, const std::string& from = {},
                     const DraftFiller& fill = {}) {
        MakeRecordOptions options{{workform, Entries(sets)}, from, {}};
        options.output.output = folder_.Path("new.mrk");
        EXPECT_EQ(MakeRecord(options, fill, reporter_), kStatusWell);
        return folder_.Read("new.mrk");
    }
    std::string Cataloged(const std::string& toml, const NewRecordOptions& record, Status status) {
        CatalogOptions options{record, {File("many.toml", toml)}, {}};
        options.output.output = folder_.Path("new.mrk");
        options.output.rejects = folder_.Path("rejects.toml");
        EXPECT_EQ(CatalogFiles(options, reporter_), status);
        return folder_.Read("new.mrk");
    }
};

// The lines of a tag in line form, one after the other.
std::string Lines(const std::string& mrk, const std::string& tag) {
    std::string lines;
    const std::string begin = "=" + tag + "  ";
    for (std::size_t at = 0; (at = mrk.find(begin, at)) != mrk.npos; ++at) {
        const std::size_t text = at + begin.size();
        lines += (lines.empty() ? "" : "|") + mrk.substr(text, mrk.find('\n', at) - text);
    }
    return lines;
}

TEST_F(NewRecordJobs, ARecordIsDatedTodayAndMadeOfItsWorkform) {
    const std::string mrk =
        Made("Book (not atlas or songbook)",
             {{"245a", "T /"}, {"100a", "Weber, Anna."}, {"language", "fre"}, {"264c", "2021"}});
    EXPECT_TRUE(Lines(mrk, "008").starts_with("260203s2021")) << mrk;
    EXPECT_EQ(Lines(mrk, "008").substr(35, 3), "fre");
    EXPECT_EQ(Lines(mrk, "245"), "10$aT /");
    EXPECT_EQ(Lines(mrk, "336"), "\\\\$atext$btxt$2rdacontent");
}

TEST_F(NewRecordJobs, WhatIsSetReplacesWhatTheFileSaysOfTheSamePlace) {
    const std::string from =
        File("one.toml",
             "workform = 'DVD video'\n245a = 'File'\n245b = 'B'\n'008/18-20' = '097'\n"
             "650 = {a = 'Rivers', x = 'History'}\n'700[1]a' = 'A'\n500 = '__$aN'\n");
    const std::string mrk = Made("1",
                                 {{"245a", "Line"},
                                  {"008/18-20", "   "},
                                  {"650a", "Canals"},
                                  {"700[1]a", "B"},
                                  {"500", "__$aM"}},
                                 from);
    EXPECT_EQ(mrk.substr(12, 2), "am");
    EXPECT_EQ(Lines(mrk, "245"), "00$aLine :$bB.");
    EXPECT_EQ(Lines(mrk, "650"), "\\0$aCanals$xHistory.");
    EXPECT_EQ(Lines(mrk, "700"), "1\\$aB.");
    EXPECT_EQ(Lines(mrk, "500"), "\\\\$aM");
}

TEST_F(NewRecordJobs, APersonFillsTheGaps) {
    std::string gaps;
    const DraftFiller fill = [&gaps](const Pattern& pattern, Draft& draft) {
        gaps = pattern.Name() + ": " + PlaceText(draft.Gaps().front());
        draft.Take(MakeEntry(draft.Gaps().front(), "9780306406157"));
    };
    EXPECT_EQ(Lines(Made("1", {{"245a", "T"}}, {}, fill), "020"), "\\\\$a9780306406157");
    EXPECT_EQ(gaps, "Book (not atlas or songbook): 020 $a");
}

TEST_F(NewRecordJobs, AFaultIsNamedBeforeAnythingIsAskedOrWritten) {
    const std::string path = File("x.toml", "");
    struct Case {
        std::string workform;
        Sets sets;
        std::string toml;
        std::string reason;
    };
    const std::vector<Case> cases{
        {"", {}, "", "no workform is named; "},
        {"Maps", {}, "", "there is no workform \"Maps\"; near it: \""},
        {"1", {{"245a", "A"}, {"245a", "B"}}, "", "245 $a: a record can have this field only once"},
        {"1", {{"008/22", "Q"}}, "", "008/22: \"Q\" is not a code of Target audience; quillory d"},
        {"1", {{"country", "us"}}, "", "008/15-17: \"us \" is an obsolete code of "},
        {"1", {{"008", "short"}}, "", "008: the field has the wrong length: 5 bytes"},
        {"1",
         {{"leader/06", "g"}},
         "",
         "leader/06: field 008 does not fit this type of record: 008/"},
        {"1", {{"leader/09", "a"}}, "", "leader/09: these positions say how a record is stored"},
        {"1", {}, "245a = ", path + ": line 1, column "},
        {"1", {}, "\n24 = 'x'", path + ": line 2, column 6: \"24\" is not a place"},
        {"1", {}, "\n'008/22' = 'Q'", path + ": line 2, column 12: 008/22: \"Q\" is not a code"},
        {"1", {}, "[[record]]\n[[record]]\n", path + ": the file describes several records"},
        {"1", {}, "\n", "one record"},
    };
    bool isAsked = false;
    const DraftFiller fill = [&isAsked](const Pattern&, Draft&) { isAsked = true; };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.reason);
        if (!test.toml.empty()) folder_.Write("x.toml", test.toml);
        const std::string from = test.toml.empty() ? "" : path;
        const std::string error = ErrorOf([&] { Made(test.workform, test.sets, from, fill); });
        if (test.reason == "one record") {
            EXPECT_EQ(error, "");
            continue;
        }
        EXPECT_TRUE(error.starts_with(test.reason)) << error;
        EXPECT_FALSE(isAsked || IsThere("new.mrk"));
    }
    EXPECT_EQ(ErrorOf([&] { Made("1", {}, File("empty.toml", "")); }),
              folder_.Path("empty.toml") + ": the file is empty");
}

TEST_F(NewRecordJobs, DamageOfAFileIsNamedAndKeptAndTheRestMade) {
    const std::string toml =
        "workform = 'Map'\n[[record]]\n245a = 'one'\n[[record]]\n245a = 'two\n"
        "[[record]]\n245a = ['x', 'y']\n[[record]]\nworkform = 'Boks'\n"
        "[[record]]\nlanguage = 'xx1'\n[[record]]\n245a = 'six'\n";
    const std::string mrk = Cataloged(toml, {}, kStatusFindings);
    EXPECT_EQ(Lines(mrk, "245"), "00$aone.|00$asix.");
    const std::size_t bad = toml.find("[[record]]\n245a = 'two");
    EXPECT_EQ(folder_.Read("rejects.toml"),
              "workform = 'Map'\n" + toml.substr(bad, toml.rfind("[[record]]") - bad));
    const std::string said = Said();
    for (const char* reason :
         {"many.toml: record 2 at byte 41: the description is not valid TOML: ",
          "(byte 63, line 5, column 12)",
          "245 $a: a record can have this field only once (byte 82, line 7, column 8)",
          "record 4 at byte 93: there is no workform \"Boks\"",
          "008/35-37: \"xx1\" is not a code of Language; "}) {
        EXPECT_NE(said.find(reason), said.npos) << reason << " in\n" << said;
    }
}

TEST_F(NewRecordJobs, ADamagedWorkformOfTheStoreIsAFaultOfItsDescriptionsAlone) {
    MakeWorkform({"Ours", "1", {}, false}, reporter_);
    {
        const Database store = OpenStore();
        store.Execute("UPDATE workforms SET crc = crc + 1");
    }
    const std::string toml = "[[record]]\nworkform = 'Ours'\n[[record]]\n245a = 'T'\n";
    EXPECT_EQ(Lines(Cataloged(toml, {"1", {}}, kStatusFindings), "245"), "00$aT.");
    EXPECT_NE(Said().find("record 1 at byte 0: the block of a workform is damaged: 100"),
              std::string::npos);
}

TEST_F(NewRecordJobs, AllRecordsOfAFileGetWhatIsSet) {
    const std::string toml = "[[record]]\n245a = 'A'\n[[record]]\n040a = 'Own'\n245a = 'B'\n";
    const std::string mrk = Cataloged(toml, {"1", Entries({{"040a", "XyZ"}})}, kStatusWell);
    EXPECT_EQ(Lines(mrk, "040"), "\\\\$aXyZ$beng$erda|\\\\$aXyZ$beng$erda");
    Cataloged(toml, {}, kStatusFindings);
    EXPECT_NE(Said().find("no workform is named"), std::string::npos);
}

}  // namespace
}  // namespace quillory

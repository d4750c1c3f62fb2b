#include <quillory/faults/FaultCode.h>
#include <quillory/reports/CheckReports.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cctype>
#include <random>
#include <string>
#include <string_view>
#include <tests/quillory/exchange/TemporaryFile.h>
#include <vector>

namespace quillory {
namespace {

class SilentPort : public JobPort {
public:
    void Say(const Message&) override {}
};

// What a record and its file hold that should never become markup.
struct Texts {
    std::string file = "file.mrc";
    std::string number = "number";
    std::string title = "title";
    std::string reason = "reason";
};

// The report of one record with two findings, and of one place of damage.
std::string Report(CheckFormat format, const Texts& texts) {
    const TemporaryFile file;
    SilentPort port;
    Reporter reporter(port, {});
    reporter.BeginFile(texts.file);
    const auto report = MakeCheckReport({format, file.Path(), 0}, reporter);
    const std::string title = "10\037a" + texts.title;
    Item item;
    item.number = 1;
    item.record.leader = "00000nam a2200000 a 4500";
    item.record.fields = {{"001", texts.number}, {"245", title}};
    const Remark note{&RuleOf(RuleId::NoNotes), Severity::Warning, {}};
    const Remark found{&RuleOf(RuleId::IsbnInvalid), Severity::Error,
                       Place::OfField("245", 1).Subfield('a'), texts.reason};
    CheckTotals totals;
    const std::vector<Remark> remarks = {note, found};
    totals.findings.BeginRecord();
    for (const Remark& remark : remarks) {
        totals.findings.Count(*remark.rule, remark.severity, remark.place);
    }
    const CheckedRecord record{item, remarks, totals.findings.Heaviest()};
    totals.Count(record);
    report->TakeRecord(record);
    Item damage;
    damage.kind = kItemDamaged;
    damage.number = 2;
    damage.fault = ItemFault{{FaultCode::kMalformedXml, {}, texts.reason}};
    report->TakeDamage(damage, FaultText(*damage.fault));
    ++totals.damaged;
    report->Finish(totals);
    return file.Read();
}

// The names of all tags and of their attributes, in order.
std::string Skeleton(std::string_view page) {
    std::string names;
    for (std::size_t at = page.find('<'); at < page.size(); at = page.find('<', at + 1)) {
        bool isQuoted = false;
        for (; at < page.size() && (isQuoted || page[at] != '>'); ++at) {
            if (page[at] == '"') isQuoted = !isQuoted;
            if (!isQuoted) names += page[at];
        }
        names += ">\n";
    }
    return names;
}

const std::vector<std::string> kHostile = {"</script>",
                                           "\"><img src=x onerror=alert(1)>",
                                           "<!--",
                                           "]]>",
                                           "' onclick='x",
                                           "</pre></section>",
                                           "&lt;b&gt;",
                                           "{{rows}}\n",
                                           "\n{{script}}\n",
                                           "\xFF\xFE",
                                           "\xE2\x82",
                                           "\xED\xA0\x80",
                                           std::string("\0\x01\x1B[31m", 7),
                                           "\r\n",
                                           "\u2028\u202E",
                                           "\u0085",
                                           "<script>alert(1)</script>",
                                           "a\tb"};

Texts Hostile(const std::string& text) {
    return {.file = "/folder" + text + "/file" + text,
            .number = text,
            .title = "Title " + text,
            .reason = text};
}

TEST(CheckPage, TextsNeverBecomeMarkup) {
    const std::string plain = Skeleton(Report(kCheckHtml, {}));
    for (const std::string& text : kHostile) {
        EXPECT_EQ(Skeleton(Report(kCheckHtml, Hostile(text))), plain) << text;
    }
    std::mt19937 random(3);
    for (int round = 0; round < 50; ++round) {
        std::string text;
        for (auto left = random() % 6; left > 0; --left) {
            text += kHostile[random() % kHostile.size()];
        }
        EXPECT_EQ(Skeleton(Report(kCheckHtml, Hostile(text))), plain) << text;
    }
}

TEST(CheckPage, IsUtf8WithoutControlCharacters) {
    for (const std::string& text : kHostile) {
        const std::string page = Report(kCheckHtml, Hostile(text));
        const bool hasControl = std::ranges::any_of(
            page, [](unsigned char c) { return (c < ' ' && c != '\n') || c == 0x7F; });
        EXPECT_FALSE(hasControl) << text;
        EXPECT_NO_THROW(nlohmann::json(page).dump()) << text;  // which throws for other bytes
    }
}

TEST(CheckPage, ShowsBytesThatCantBeSeen) {
    const std::string page = Report(kCheckHtml, Hostile("\xFF<\x1B"));
    EXPECT_NE(page.find("file&lt;FF&gt;&lt;&lt;1B&gt;</td>"), page.npos);
    EXPECT_NE(page.find("<h3>Title "), page.npos);
}

TEST(CheckSarif, TextsNeverBreakTheReport) {
    for (const std::string& text : kHostile) {
        SCOPED_TRACE(text);
        const auto log = nlohmann::json::parse(Report(kCheckSarif, Hostile(text)));
        const auto& results = log.at("runs").at(0).at("results");
        ASSERT_EQ(results.size(), 3U);
        const std::string uri = results.at(0)
                                    .at("locations")
                                    .at(0)
                                    .at("physicalLocation")
                                    .at("artifactLocation")
                                    .at("uri");
        EXPECT_EQ(uri.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                        "0123456789:/-._~%"),
                  uri.npos)
            << uri;
    }
}

// Every line is an object, whatever the record holds.
TEST(CheckJsonl, TextsNeverBreakALine) {
    for (const std::string& text : kHostile) {
        SCOPED_TRACE(text);
        const std::string report = Report(kCheckJsonl, Hostile(text));
        ASSERT_EQ(std::ranges::count(report, '\n'), 2);
        const auto record = nlohmann::json::parse(report.substr(0, report.find('\n')));
        const auto damage = nlohmann::json::parse(report.substr(report.find('\n')));
        EXPECT_EQ(record.at("findings").size(), 2U);
        EXPECT_TRUE(record.at("findings")[0].at("tag").is_null());
        EXPECT_EQ(record.at("findings")[1].at("subfield"), "a");
        EXPECT_EQ(record.at("file"), damage.at("file"));
        EXPECT_EQ(damage.at("record"), 2);
    }
}

TEST(CheckReports, FormatsGoByTheNameOfTheOutput) {
    const auto kindOf = [](const std::string& report) {
        if (report.starts_with("<!DOCTYPE html>")) return "page";
        return report.empty() ? "lines" : "text";
    };
    const std::pair<const char*, const char*> kCases[] = {{".html", "page"},
                                                          {".htm", "page"},
                                                          {".jsonl", "lines"},
                                                          {".txt", "text"},
                                                          {"html", "text"}};
    for (const auto& [ending, kind] : kCases) {
        const TemporaryFile file({}, ending);
        SilentPort port;
        Reporter reporter(port, {});
        MakeCheckReport({kCheckByName, file.Path(), 0}, reporter)->Finish({});
        EXPECT_EQ(kindOf(file.Read()), std::string(kind)) << ending;
    }
}

}  // namespace
}  // namespace quillory

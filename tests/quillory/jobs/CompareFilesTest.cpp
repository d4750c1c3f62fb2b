#include <quillory/reports/CompareReports.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/quillory/Records.h>
#include <tests/quillory/exchange/TemporaryFile.h>
#include <tests/quillory/jobs/MemoryPort.h>

namespace quillory {
namespace {

std::string Titled(const std::string& id, const std::string& title) {
    Lines lines{kLeaderLine, "24510\037a" + title};
    if (!id.empty()) lines.insert(lines.begin() + 1, "001" + id);
    return MarcOf(lines);
}

struct Report {
    Status status = kStatusWell;
    std::string text;
    Lines lines;
};

Report Compare(const std::string& before, const std::string& after, CompareOptions options = {},
               CompareReportOptions form = {.format = kCompareText}) {
    const TemporaryFile one(before);
    const TemporaryFile other(after);
    const TemporaryFile out;
    options.input.files = {one.Path(), other.Path()};
    form.output = out.Path();
    MemoryPort port;
    Reporter reporter(port, {});
    const auto sink = MakeCompareReport(form, reporter);
    Report report;
    report.status = CompareFiles(options, *sink, reporter);
    report.text = out.Read();
    report.lines = port.lines;
    for (const auto& [path, name] : {std::pair(one.Path(), "A"), std::pair(other.Path(), "B")}) {
        for (auto at = report.text.find(path); at != report.text.npos;
             at = report.text.find(path)) {
            report.text.replace(at, path.size(), name);
        }
    }
    return report;
}

TEST(CompareFiles, SameRecordsInAnyOrderAndForm) {
    const std::string a = Titled("a", "X") + Titled("b", "Y\xC3\xA9");
    const std::string mrk =
        "=LDR  00000nam\\\\2200000\\a\\4500\n=001  b\n=245  10$aY\xC3\xA9\n\n"
        "=LDR  00000nam\\\\2200000\\a\\4500\n=001  a\n=245  10$aX\n\n";
    const Report same = Compare(a, mrk);
    EXPECT_EQ(same.status, kStatusWell);
    EXPECT_EQ(same.text, "");
    EXPECT_EQ(same.lines, (Lines{"2 records the same, 0 changed, 0 gone, 0 new"}));
}

TEST(CompareFiles, WhatIsNewGoneAndChangedIsNamedInOrder) {
    const Report report = Compare(Titled("a", "X") + Titled("b", "Y") + Titled("c", "Z"),
                                  Titled("d", "N") + Titled("c", "Z") + Titled("b", "W"));
    EXPECT_EQ(report.status, kStatusFindings);
    EXPECT_EQ(report.text,
              "gone: A: record 1 (001 a) X\n"
              "changed: A: record 2 (001 b) -> B: record 3 (001 b) Y\n"
              "- 245 10  $a Y\n+ 245 10  $a W\n"
              "new: B: record 1 (001 d) N\n");
    EXPECT_EQ(report.lines.back(), "1 record the same, 1 changed, 1 gone, 1 new");
}

TEST(CompareFiles, DoubleAndMissingKeysAreNamedNotLost) {
    const std::string two = Titled("a", "X") + Titled("a", "Y");
    EXPECT_EQ(Compare(two, two).status, kStatusWell);
    EXPECT_EQ(
        Compare(two, two).lines.back(),
        "2 records the same, 0 changed, 0 gone, 0 new, 2 with a double key (1 before, 1 after)");
    const Report fewer = Compare(two, Titled("a", "X") + Titled("", "N"));
    EXPECT_EQ(fewer.status, kStatusFindings);
    EXPECT_EQ(fewer.text, "gone: A: record 2 (001 a) Y\nno key: B: record 2 N\n");
    const Report none =
        Compare(Titled("", "M") + Titled("", "N"), Titled("", "N") + Titled("", "O"));
    EXPECT_EQ(none.status, kStatusFindings);
    EXPECT_EQ(none.text, "no key: A: record 1 M\nno key: B: record 2 O\n");
    EXPECT_EQ(none.lines.back(),
              "1 record the same, 0 changed, 0 gone, 0 new, 2 without a key (1 before, 1 after)");
    EXPECT_EQ(Compare(Titled("", "N"), Titled("", "N")).status, kStatusWell);
}

TEST(CompareFiles, DamageIsNamedAndNoSameness) {
    const Report report = Compare(Titled("a", "X"), "00030 bad\035" + Titled("a", "X"));
    EXPECT_EQ(report.status, kStatusFindings);
    EXPECT_EQ(report.text, "");
    EXPECT_THROW(Compare("", "", {.ignored = "24"}), UsageError);
}

TEST(CompareFiles, ReportsHaveEveryForm) {
    const std::string before = Titled("a", "<X>") + Titled("b", "Y");
    const Report jsonl = Compare(before, Titled("a", "Z"), {}, {.format = kCompareJsonl});
    EXPECT_NE(jsonl.text.find("{\"outcome\":\"changed\",\"before\":{\"file\":\"A\",\"record\":1,"
                              "\"offset\":0,\"control_number\":\"a\",\"title\":\"<X>\"}"),
              std::string::npos)
        << jsonl.text;
    EXPECT_NE(jsonl.text.find("\"fields\":[{\"tag\":\"245\",\"before\":\"245 10  $a <X>\","
                              "\"after\":\"245 10  $a Z\"}]}"),
              std::string::npos)
        << jsonl.text;
    EXPECT_NE(jsonl.text.find("\"after\":null,\"fields\":[]}"), std::string::npos) << jsonl.text;
    const Report page = Compare(before, Titled("a", "Z"), {}, {.format = kCompareHtml, .rows = 1});
    EXPECT_NE(page.text.find("<td class=\"finding\">245 10  $a &lt;X&gt;</td>"), std::string::npos);
    EXPECT_NE(page.text.find("The first 1 of 2 rows"), std::string::npos);
    EXPECT_EQ(page.text.find("{{"), std::string::npos);
    const Report colour =
        Compare(before, Titled("a", "Z"), {}, {.format = kCompareText, .colour = true});
    EXPECT_NE(colour.text.find("\033[31m- 245"), std::string::npos) << colour.text;
}

}  // namespace
}  // namespace quillory

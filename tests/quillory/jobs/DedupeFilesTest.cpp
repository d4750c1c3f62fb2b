#include <quillory/reports/DedupeMessages.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <tests/quillory/Records.h>
#include <tests/quillory/exchange/TemporaryFile.h>
#include <tests/quillory/jobs/MemoryPort.h>
#include <vector>

namespace quillory {
namespace {

struct Outcome {
    Status status = kStatusWell;
    std::string output;
    std::string removed;
    std::string report;
    Lines lines;
};

Outcome Dedupe(const std::string& bytes, DedupeOptions options,
               const std::string& report = ".txt") {
    const TemporaryFile in(bytes);
    const TemporaryFile out;
    const TemporaryFile removed;
    const TemporaryFile rejects;
    const TemporaryFile told({}, report);
    options.input.files = {in.Path()};
    options.output.output = out.Path();
    options.output.rejects = rejects.Path();
    options.removed = removed.Path();
    MemoryPort port;
    Reporter reporter(port, {.quiet = true});
    Outcome outcome;
    DedupeMessages messages(told.Path(), options, reporter);
    outcome.status = DedupeFiles(options, messages, reporter);
    outcome.output = out.Read();
    outcome.removed = removed.Read();
    outcome.report = told.Read();
    for (std::string line : port.lines) {
        line.replace(line.find(in.Path()), in.Path().size(), "FILE");
        outcome.lines.push_back(line);
    }
    return outcome;
}

std::string Isbn(const std::string& id, const std::string& isbn, const std::string& more = "x") {
    return MarcOf({kLeaderLine, "001" + id, "020  \037a" + isbn, "24510\037a" + more});
}

// What is written beside the others is not among those that are counted as written.
TEST(DedupeFiles, SummaryCountsWhatIsKept) {
    const std::string a = Isbn("a", "0306406152");
    const TemporaryFile in(a + a + a + "00030 bad\035");
    const TemporaryFile out;
    const TemporaryFile removed;
    DedupeOptions options{.by = {"001"}};
    options.input.files = {in.Path()};
    options.output.output = out.Path();
    options.removed = removed.Path();
    MemoryPort port;
    Reporter reporter(port, {});
    DedupeMessages messages("", options, reporter);
    EXPECT_EQ(DedupeFiles(options, messages, reporter), kStatusFindings);
    EXPECT_EQ(out.Read(), a);
    EXPECT_EQ(removed.Read(), a + a);
    ASSERT_GE(port.lines.size(), 2U);
    EXPECT_EQ(port.lines[port.lines.size() - 2],
              "1 record written, 1 not; --rejects FILE keeps what is not written in full");
    EXPECT_EQ(port.lines.back(), "2 of 3 records removed (kept in " + removed.Path() + ")");
}

TEST(DedupeFiles, WhatGoesIsNamedAndKeptElsewhere) {
    const std::string a = Isbn("a", "0306406152");
    const std::string b = Isbn("b", "978-0-306-40615-7", "x\037blonger");
    const std::string c = Isbn("c", "9791034304455");
    const std::string none = MarcOf({kLeaderLine, "001n", "24510\037aTitle"});
    const Outcome first = Dedupe(a + none + b + c, {.by = {"020"}});
    EXPECT_EQ(first.status, kStatusWell);
    EXPECT_EQ(first.output, a + none + c);
    EXPECT_EQ(first.removed, b);
    const std::string at = std::to_string(a.size() + none.size());
    EXPECT_EQ(first.lines, (Lines{"FILE: record 3 at byte " + at +
                                  " (001 b): removed; record 1 (001 a) has 020 9780306406157, "
                                  "too"}));
    EXPECT_NE(first.report.find("record 1 (001 a) x\n  removed  "), std::string::npos)
        << first.report;
    EXPECT_EQ(Dedupe(a + none + b + c, {.by = {"020"}, .keep = Keep::Last}).output, none + b + c);
    EXPECT_EQ(Dedupe(a + none + b + c, {.by = {"020"}, .keep = Keep::Fullest}).removed, a);
    EXPECT_NE(Dedupe(a + b, {.by = {"020"}}, ".jsonl")
                  .report.find("{\"key\":\"020 9780306406157\",\"kept\":{\"file\":"),
              std::string::npos);
}

TEST(DedupeFiles, KeptAndRemovedTogetherAreTheInput) {
    std::mt19937 random(23);
    std::vector<std::string> records;
    std::string bytes;
    for (int i = 0; i < 300; ++i) {
        const std::string key =
            random() % 9 == 0 ? std::string(10000 - 100, 'k') : std::to_string(random() % 100);
        records.push_back(MarcOf({kLeaderLine, "001" + key, "500  \037a" + std::to_string(i)}));
        bytes += records.back();
    }
    for (const char* memory : {"1", "256M"}) {
        const Outcome outcome = Dedupe(bytes, {.by = {"001"}, .memory = memory});
        std::string expected;
        std::string kept;
        for (const std::string& record : records) {
            const bool isKept = outcome.output.find(record) != std::string::npos;
            const bool isRemoved = outcome.removed.find(record) != std::string::npos;
            EXPECT_NE(isKept, isRemoved) << memory;
            (isKept ? kept : expected) += record;
        }
        EXPECT_TRUE(outcome.output == kept && outcome.removed == expected) << memory;
    }
}

TEST(DedupeFiles, NothingIsOverwritten) {
    const TemporaryFile in(Isbn("a", "0306406152"));
    DedupeOptions options{.by = {"001"}};
    options.input.files = {in.Path()};
    options.output.output = "-";
    options.removed = in.Path();
    MemoryPort port;
    Reporter reporter(port, {});
    DedupeMessages messages({}, options, reporter);
    EXPECT_THROW(DedupeFiles(options, messages, reporter), UsageError);
    EXPECT_EQ(in.Read(), Isbn("a", "0306406152"));
}

}  // namespace
}  // namespace quillory

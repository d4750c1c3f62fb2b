#include <quillory/jobs/SortFiles.h>

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
    std::string rejects;
    Lines lines;
};

Outcome Sort(const std::vector<std::string>& files, SortOptions options,
             const std::string& ending = ".mrc") {
    std::vector<std::unique_ptr<TemporaryFile>> inputs;
    for (const std::string& bytes : files) {
        inputs.push_back(std::make_unique<TemporaryFile>(bytes));
        options.input.files.push_back(inputs.back()->Path());
    }
    const TemporaryFile out({}, ending);
    const TemporaryFile rejects;
    options.output.output = out.Path();
    options.output.rejects = rejects.Path();
    MemoryPort port;
    Reporter reporter(port, {});
    Outcome outcome;
    outcome.status = SortFiles(options, reporter);
    outcome.output = out.Read();
    outcome.rejects = rejects.Read();
    outcome.lines = port.lines;
    return outcome;
}

std::string Titled(const std::string& id, const std::string& title) {
    return MarcOf({kLeaderLine, "001" + id, "24510\037a" + title});
}

TEST(SortFiles, IsAStablePermutationWhateverTheMemory) {
    std::mt19937 random(3);
    std::vector<std::pair<std::string, std::string>> records;
    std::string bytes;
    for (int i = 0; i < 400; ++i) {
        const std::string title(1, static_cast<char>('a' + random() % 9));
        records.emplace_back(title, Titled(std::to_string(i), title));
        bytes += records.back().second;
    }
    std::ranges::stable_sort(records, {}, [](const auto& record) { return record.first; });
    std::string expected;
    for (const auto& record : records) expected += record.second;
    for (const char* memory : {"1", "2K", "1G"}) {
        const Outcome outcome = Sort({bytes}, {.by = {"245a"}, .memory = memory});
        EXPECT_EQ(outcome.status, kStatusWell) << memory;
        EXPECT_TRUE(outcome.output == expected) << memory;
    }
}

TEST(SortFiles, DamageIsNamedAndKeptAndMessagesNameTheFile) {
    const std::string damaged = "00040nam  damaged\035";
    const std::string big =
        "=LDR  " + kLeader + "\n=001  big\n=245  10$aA" + std::string(10000, 'a') + "\n\n";
    const Outcome outcome =
        Sort({Titled("1", "B") + damaged + Titled("2", "C"), big}, {.by = {"245a"}});
    EXPECT_EQ(outcome.status, kStatusFindings);
    EXPECT_EQ(outcome.output, Titled("1", "B") + Titled("2", "C"));
    EXPECT_EQ(outcome.rejects, damaged + big);
    ASSERT_EQ(outcome.lines.size(), 3U);
    EXPECT_NE(outcome.lines[1].find(": record 1 at byte 0 (001 big): 245: the field has"),
              std::string::npos)
        << outcome.lines[1];
}

TEST(SortFiles, FormsMix) {
    const std::string mrk = "=LDR  " + kLeader + "\n=001  x\n=245  10$aA\n\n";
    const Outcome outcome = Sort({Titled("1", "B"), mrk}, {.by = {"245a"}}, ".mrk");
    EXPECT_TRUE(outcome.output.starts_with("=LDR  00000nam\\a2200000\\a\\4500\n=001  x\n"))
        << outcome.output;
    EXPECT_EQ(Sort({""}, {.by = {"001"}}).output, "");
    EXPECT_THROW(Sort({mrk}, {.by = {}}), UsageError);
    EXPECT_THROW(Sort({mrk}, {.by = {"001"}, .memory = "12Q"}), UsageError);
}

}  // namespace
}  // namespace quillory

#include <quillory/jobs/MergeFiles.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/quillory/Records.h>
#include <tests/quillory/exchange/TemporaryFile.h>
#include <tests/quillory/jobs/MemoryPort.h>

namespace quillory {
namespace {

struct Outcome {
    Status status = kStatusWell;
    std::string output;
    Lines lines;
};

Outcome Merge(const std::string& records, const std::string& others, MergeOptions options) {
    const TemporaryFile one(records);
    const TemporaryFile other(others);
    const TemporaryFile out;
    options.input.files = {one.Path(), other.Path()};
    options.output.output = out.Path();
    MemoryPort port;
    Reporter reporter(port, {});
    Outcome outcome;
    outcome.status = MergeFiles(options, reporter);
    outcome.output = out.Read();
    for (std::string line : port.lines) {
        const auto at = line.find(other.Path());
        if (at != line.npos) line.replace(at, other.Path().size(), "B");
        outcome.lines.push_back(line);
    }
    return outcome;
}

const std::string kMarc8Leader = "LDR00000nam  2200000 a 4500";

TEST(MergeFiles, FieldsComeInTheCharacterSetOfTheRecord) {
    const std::string marc8 = MarcOf({kMarc8Leader, "001a",
                                      "245  \037aB\xE2"
                                      "e"});
    const std::string plain = MarcOf({kMarc8Leader, "001p", "245  \037aPlain"});
    const std::string other = MarcOf({kLeaderLine, "001c", "245  \037aC"});
    const auto subject = [](const std::string& id) {
        return MarcOf({kLeaderLine, "001" + id, "650 0\037a\xC3\xA9t\xC3\xA9"});
    };
    const Outcome outcome =
        Merge(marc8 + other + plain, subject("a") + subject("x") + subject("p"), {.fields = "6XX"});
    EXPECT_EQ(outcome.status, kStatusWell);
    EXPECT_EQ(outcome.output, MarcOf({kMarc8Leader, "001a",
                                      "245  \037aB\xE2"
                                      "e",
                                      "650 0\037a\xE2"
                                      "et\xE2"
                                      "e"}) +
                                  other +
                                  MarcOf({kMarc8Leader, "001p", "245  \037aPlain",
                                          "650 0\037a\xE2"
                                          "et\xE2"
                                          "e"}));
    EXPECT_EQ(outcome.lines, (Lines{"B: record 2 at byte " + std::to_string(subject("a").size()) +
                                        " (001 x): goes with no record",
                                    "2 of 3 records changed, 1 record of B went with none"}));
}

TEST(MergeFiles, KeysAndDamageAreNamed) {
    const std::string record = MarcOf({kLeaderLine, "001a", "020  \037a0306406152"});
    const std::string with = MarcOf({kLeaderLine, "020  \037a9780306406157", "856  \037ux"});
    const std::string again = MarcOf({kLeaderLine, "020  \037a9780306406157", "856  \037uy"});
    const Outcome outcome =
        Merge(record, with + "00030 bad\035" + again, {.by = {"020"}, .fields = "856"});
    EXPECT_EQ(outcome.status, kStatusFindings);
    EXPECT_EQ(outcome.output, MarcOf({kLeaderLine, "001a", "020  \037a0306406152", "856  \037ux"}));
    bool isNamed = false;
    for (const std::string& line : outcome.lines) {
        isNamed |= line.ends_with("020 9780306406157 is the key of record 1, too");
    }
    EXPECT_TRUE(isNamed);
}

TEST(MergeFiles, OnlyWholeFieldsAreMerged) {
    for (const char* fields : {"245a", "008/35-37", "leader", "245/1", "650[2]", "24"}) {
        EXPECT_THROW(Merge("", "", {.fields = fields}), UsageError) << fields;
    }
}

}  // namespace
}  // namespace quillory

#include <quillory/jobs/RepairFiles.h>
#include <zorby/record/CommFormat.h>
#include <zorby/workforms/TemplateList.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <tests/quillory/exchange/TemporaryFile.h>
#include <tests/quillory/jobs/MemoryPort.h>
#include <utility>
#include <vector>

namespace quillory {
namespace {

using Lines = std::vector<std::string>;

const std::string kGood = "261121s2026    ci a          000 1 eng d";
const std::string kFaulty = "261121s19x5    ci a9b  ?     000 1 ??? d";
const std::string kPutRight = "261121s19u5    ci a|b  |     000 1 und d";

std::string BytesOf(const std::vector<std::pair<std::string, std::string>>& fields) {
    zorby::CommFormatWriter writer;
    writer.SetLeader("00000nam a2200000 i 4500");
    for (const auto& [tag, content] : fields) writer.AddField(tag, content);
    std::string bytes;
    writer.Finish(bytes);
    return bytes;
}

std::string Book(const std::string& field008) {
    return BytesOf({{"001", "id"}, {"008", field008}, {"245", "10\037aSch\303\266ne"}});
}

// Keeps what it is told.
class KeptReport : public RepairReport {
public:
    void TakeRecord(const Item& item, const std::vector<Repair>& repairs) override {
        for (const Repair& repair : repairs) {
            lines.push_back(std::to_string(item.number) + " " + PlaceText(repair.place) + ": " +
                            repair.before + " -> " + repair.after);
        }
    }
    void Finish(const RepairTotals& all, bool isDryRun) override {
        totals = all;
        ends.push_back(isDryRun ? "dry run" : "records written");
    }

    Lines lines;
    RepairTotals totals;
    Lines ends;
};

class RepairFilesTest : public testing::Test {
protected:
    RepairFilesTest() { zorby::CTemplateList::InitializeTemplateList(DATA_FOLDER); }
    ~RepairFilesTest() override { zorby::CTemplateList::DestroyTemplateList(); }

    // Repairs a file of these bytes into out_.
    Status Run(const std::string& bytes, RepairFilesOptions options = {}) {
        const TemporaryFile in(bytes, ".mrc");
        options.input.files = {in.Path()};
        options.output.output = out_.Path();
        MemoryPort port;
        Reporter reporter(port, {.quiet = true});
        report_ = {};
        const Status status = RepairFiles(options, lists_, report_, reporter);
        said_ = port.lines;
        return status;
    }

    const CodeLists lists_{CodeStatus(CODES_FILE)};
    const TemporaryFile out_;
    KeptReport report_;
    Lines said_;
};

TEST_F(RepairFilesTest, WritesRecordsPutRightAndTellsTheReport) {
    EXPECT_EQ(Run(Book(kGood) + Book(kFaulty)), kStatusWell);
    EXPECT_EQ(out_.Read(), Book(kGood) + Book(kPutRight));
    EXPECT_EQ(report_.lines, (Lines{"2 008/07-10: 19x5 -> 19u5", "2 008/18-21: a9b  -> a|b ",
                                    "2 008/23: ? -> |", "2 008/35-37: ??? -> und"}));
    EXPECT_EQ(report_.totals.records, 2U);
    EXPECT_EQ(report_.totals.recordsRepaired, 1U);
    EXPECT_EQ(report_.totals.repaired, 4U);
    EXPECT_EQ(report_.totals.left, 0U);
    EXPECT_EQ(report_.totals.rows.size(), 4U);
    EXPECT_EQ(report_.ends, Lines{"records written"});
    EXPECT_EQ(said_, Lines{});

    EXPECT_EQ(Run(out_.Read()), kStatusWell);
    EXPECT_EQ(report_.lines, Lines{});
}

TEST_F(RepairFilesTest, PutsARecordTogetherAnewForAnotherLength) {
    using Fields = std::vector<std::pair<std::string, std::string>>;
    const auto bytes = [](const std::string& field007) {
        return BytesOf(Fields{{"001", "id"}, {"007", field007}, {"007", "ta"}, {"008", kGood}});
    };
    EXPECT_EQ(Run(bytes("co cga")), kStatusWell);
    EXPECT_EQ(out_.Read(), bytes("co cga||||||||"));
    EXPECT_EQ(report_.lines, Lines{"1 007: co cga -> co cga||||||||"});
}

TEST_F(RepairFilesTest, ADryRunWritesNothing) {
    RepairFilesOptions options;
    options.isDryRun = true;
    EXPECT_EQ(Run(Book(kFaulty), options), kStatusFindings);
    EXPECT_EQ(out_.Read(), "");
    EXPECT_EQ(report_.lines.size(), 4U);
    EXPECT_EQ(report_.ends, Lines{"dry run"});
    EXPECT_EQ(Run(Book(kGood), options), kStatusWell);
}

TEST_F(RepairFilesTest, KeepsDamageAndGoesOn) {
    const std::string damaged = "99999" + Book(kFaulty).substr(5);
    const TemporaryFile rejects;
    RepairFilesOptions options;
    options.output.rejects = rejects.Path();
    EXPECT_EQ(Run(damaged + Book(kFaulty), options), kStatusFindings);
    EXPECT_EQ(out_.Read(), Book(kPutRight));
    EXPECT_EQ(rejects.Read(), damaged);
    EXPECT_EQ(said_.size(), 1U);
    options.isDryRun = true;
    EXPECT_EQ(Run(damaged + Book(kGood), options), kStatusFindings);
    EXPECT_EQ(said_.size(), 1U);
}

TEST_F(RepairFilesTest, WhatIsLeftIsAFinding) {
    const std::string record = BytesOf({{"001", "id"}, {"006", "?"}, {"008", kGood}});
    EXPECT_EQ(Run(record), kStatusFindings);
    EXPECT_EQ(out_.Read(), record);
    EXPECT_EQ(report_.totals.left, 1U);
    EXPECT_EQ(report_.lines, Lines{"1 006: ? -> ?"});
}

TEST_F(RepairFilesTest, NoFileLeavesNoOutput) {
    RepairFilesOptions options;
    options.input.files = {"/no/such/file"};
    const TemporaryFile name;
    std::filesystem::remove(name.Path());
    options.output.output = name.Path();
    MemoryPort port;
    Reporter reporter(port, {});
    EXPECT_THROW(RepairFiles(options, lists_, report_, reporter), FileError);
    EXPECT_FALSE(std::filesystem::exists(name.Path()));
    EXPECT_EQ(report_.ends, Lines{});
}

}  // namespace
}  // namespace quillory

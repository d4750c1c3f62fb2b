#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/ExportFiles.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/holdings/HoldingsSelector.h>

#include <tests/quillory/holdings/HoldingsFixture.h>
#include <tests/quillory/jobs/MemoryPort.h>

namespace quillory {
namespace {

// In the line form.
std::string Record(const std::string& number, const std::string& fields) {
    return "=LDR  00000nam\\a2200000\\a\\4500\n=001  " + number +
           "\n=008  260101s2026\\\\\\\\nyu\\\\\\\\\\\\\\\\\\\\\\000\\0\\eng\\d\n" + fields + "\n";
}

const std::string kTitle = "=245  00$aTitle\n";
const std::string kCopy = "=852  \\\\$hold$p1\n";

class ExportFilesTest : public HoldingsFixture {
protected:
    ExportFilesTest() {
        options_.policy.policy.kind = kPolicyBasic;
        options_.output.output = out_.Path();
        options_.output.form = FormNamed("mrk");
    }
    ~ExportFilesTest() override { zorby::CMARCFormat::FreeYourself(); }

    Status Run(const std::string& records) {
        const TemporaryFile in(records, ".mrk");
        options_.input.files = {in.Path()};
        MemoryPort port;
        Reporter reporter(port, {});
        const Status status = ExportFiles(options_, reporter);
        said_.clear();
        for (std::string line : port.lines) {
            if (line.starts_with(in.Path())) line.replace(0, in.Path().size(), "in");
            said_ += line + "\n";
        }
        return status;
    }

    // The fault that stops the job before any record is read.
    Fault FaultOf(const std::vector<std::string>& files) {
        options_.input.files = files;
        MemoryPort port;
        Reporter reporter(port, {});
        try {
            ExportFiles(options_, reporter);
        } catch (const UsageError& error) {
            return error.What();
        }
        return {};
    }

    // The fields of copies that were written, such as "852  $hA$p7".
    std::string CopiesWritten() const {
        std::string copies;
        const std::string written = out_.Read();
        for (std::size_t at = 0; (at = written.find("\n=852", at)) != written.npos; ++at) {
            copies += written.substr(at + 2, written.find('\n', at + 1) - at - 1);
        }
        std::ranges::replace(copies, '\\', ' ');
        return copies;
    }

    ExportOptions options_;
    const TemporaryFile out_;
    std::string said_;
};

TEST_F(ExportFilesTest, ThePolicyDecidesWhatLeaves) {
    struct Case {
        std::vector<std::pair<std::string, int>> keys;
        std::string fields;
        Status status;
        bool isWritten;
        const char* said;
    };
    const Case cases[] = {
        {{}, kTitle + kCopy, kStatusWell, true, ""},
        {{{"NoHoldings", 2}}, kTitle, kStatusWell, true, ""},
        {{{"NoHoldings", 1}}, kTitle, kStatusWell, true, "W: no holdings"},
        {{{"NoHoldings", 0}}, kTitle, kStatusFindings, false, "E: no holdings"},
        {{}, kCopy, kStatusFindings, false, "E: "},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.fields + test.said);
        options_.policy.policy.kind = test.keys.empty() ? kPolicyBasic : kPolicyProfile;
        options_.policy.policy.keys = test.keys;
        const TemporaryFile rejects;
        options_.output.rejects = rejects.Path();
        const std::string record = Record("a", test.fields);
        EXPECT_EQ(Run(record), test.status);
        EXPECT_EQ(out_.Read(), test.isWritten ? record : "");
        EXPECT_EQ(rejects.Read().empty(), test.isWritten);
        EXPECT_EQ(said_.empty(), *test.said == '\0') << said_;
        EXPECT_NE(said_.find(test.said), said_.npos) << said_;
    }
}

TEST_F(ExportFilesTest, AFileGivesTheCopiesAndItsOtherLinesAreNamed) {
    std::string text = "001\tCall number\tBar code\nb\tB\t8\na\tA\t7\na\tA c.2\t9\n";
    for (int i = 0; i < 7; ++i) text += "none" + std::to_string(i) + "\tX\t\n";
    const TemporaryFile file(text);
    options_.holdings = {file.Path(), "Basic circulation", ""};
    const std::string records = Record("a", kTitle + kCopy) + "\n" + Record("c", kTitle + kCopy) +
                                "\n" + Record("b", kTitle);
    EXPECT_EQ(Run(records), kStatusFindings);
    EXPECT_EQ(CopiesWritten(),
              "852    $hA$p7\n852    $hA c.2$p9\n852    $hold$p1\n852    $hB$p8\n");
    std::string expected;
    for (int i = 0; i < 5; ++i) {
        expected += file.Path() + ": line " + std::to_string(i + 5) + ": no record has 001 none" +
                    std::to_string(i) + "\n";
    }
    EXPECT_EQ(said_, expected + file.Path() + ": 2 more: lines without a record\n");
}

TEST_F(ExportFilesTest, ASystemIsInForceForTheJobAlone) {
    const auto inForce = [] { return zorby::CHoldingsSelector::GetCurrentHoldingsTypeName(); };
    const std::string before = inForce();
    options_.holdings = {"", "Alexandria", "Follett"};
    EXPECT_EQ(Run(Record("a", kTitle + "=852  \\\\$hA$xFSC@cAcme\n")), kStatusWell);
    EXPECT_EQ(CopiesWritten(), "852    $hA$1Vendor:Acme|\n");
    EXPECT_EQ(inForce(), before);
    options_.holdings.from = "none";
    EXPECT_TRUE(FaultOf({}));
    EXPECT_EQ(inForce(), before);
}

TEST_F(ExportFilesTest, WhatCannotBeCarriedOutIsAFault) {
    const TemporaryFile byNumber("record\tBar code\n1\t7\n");
    const TemporaryFile one;
    const TemporaryFile two;
    struct Case {
        HoldingsOptions holdings;
        std::vector<std::string> files;
        FaultCode code;
        const char* found;
    };
    const Case cases[] = {
        {{"", "No such", ""}, {}, FaultCode::kNoHoldingsType, "No such"},
        {{"", "", "99"}, {}, FaultCode::kNoHoldingsType, "99"},
        {{"-", "1", ""}, {}, FaultCode::kHoldingsFromStandardInput, ""},
        {{"-", "1", ""}, {one.Path(), "-"}, FaultCode::kHoldingsFromStandardInput, ""},
        {{byNumber.Path(), "1", ""}, {one.Path(), two.Path()}, FaultCode::kHoldingsNumberFiles, ""},
    };
    for (const Case& test : cases) {
        options_.holdings = test.holdings;
        const Fault fault = FaultOf(test.files);
        EXPECT_EQ(fault.code, test.code) << FaultId(test.code);
        EXPECT_EQ(fault.found, test.found) << FaultId(test.code);
    }
    EXPECT_EQ(out_.Read(), "");
}

}  // namespace
}  // namespace quillory

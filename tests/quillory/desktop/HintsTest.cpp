#include <quillory/faults/Fault.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/rules/Remark.h>

#include <regex>
#include <tests/quillory/desktop/DeskTest.h>

namespace quillory {
namespace {

// Whether a text tells a person to type a command.
bool HasCommand(const std::string& text) {
    static const std::regex kCommand("`|quillory [a-z]+ lists|quillory [a-z]+ makes| --[a-z]");
    return std::regex_search(text, kCommand);
}

TEST_F(DeskTest, NothingThatIsSaidNamesACommandOfTheCommandLine) {
    for (int code = 0; code < static_cast<int>(FaultCode::kEnd); ++code) {
        const Fault fault{static_cast<FaultCode>(code), *ParsePlace("008/18"), "x", "y"};
        EXPECT_FALSE(HasCommand(FaultText(fault))) << FaultText(fault);
    }
    for (const Rule& rule : Rules()) {
        for (const char* codes : {"", "008/18", "leader/06", "041 $a"}) {
            const Place place = ParsePlace(codes).value_or(Place());
            const Remark remark{&rule, rule.severity, place, "x", {}, place};
            EXPECT_FALSE(HasCommand(RemarkText(remark))) << RemarkText(remark);
            EXPECT_FALSE(RemarkText(remark).ends_with("; ")) << RemarkText(remark);
        }
    }
}

TEST_F(DeskTest, AFindingOfACodeSaysWhichFormListsTheCodes) {
    const Remark remark{&RuleOf(RuleId::CodeUnknown),
                        Severity::Warning,
                        *ParsePlace("007/03"),
                        "\"Q\" is no code",
                        {},
                        *ParsePlace("007v/03")};
    EXPECT_EQ(RemarkText(remark), "\"Q\" is no code; F7 lists the codes, in the form of the 007");
}

}  // namespace
}  // namespace quillory

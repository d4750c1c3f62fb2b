#include <quillory/jobs/Library.h>
#include <quillory/jobs/RecordPolicy.h>
#include <quillory/rules/Inspector.h>
#include <quillory/text/Utf8.h>

#include <algorithm>
#include <fuzz/Home.h>

namespace quillory::fuzz {
namespace {

Checker MakeStrictChecker() {
    PutAllInForce();
    PolicyOptions options;
    options.userDefined = "590ab";
    return MakeChecker(options, kCharsetAuto);
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        const Utf8Char c = DecodeUtf8(text);
        if (!c.valid) return false;
        text.remove_prefix(c.size);
    }
    return true;
}

bool HasField(const Record& record, const Place& place) {
    const auto count = std::ranges::count(record.fields, place.Tag(), &zorby::CommFormatField::tag);
    return place.IsLeader() || place.occurrence <= count;
}

void CheckFinding(const Finding& finding, const Record& record) {
    Expect(IsUtf8(LineText(finding)), "a finding can be shown");
    Expect(HasField(record, finding.place), "a finding is about a field that is there");
}

void Check(Checker& checker, const Record& record) {
    std::vector<Finding> findings;
    std::vector<Finding> again;
    checker.Check(record, findings);
    checker.Check(record, again);
    Expect(findings.size() == again.size(), "a record is checked without regard to the one before");
    for (std::size_t i = 0; i < findings.size(); ++i) {
        CheckFinding(findings[i], record);
        Expect(findings[i].code == again[i].code && findings[i].place == again[i].place,
               "a second check finds the same");
    }
}

const CodeLists& Lists() {
    static const CodeLists lists = LoadCodeLists();
    return lists;
}

void Inspect(const CheckerOptions& options, const Record& record) {
    static const RuleWeights weights({{}, {}, {"control-number-repeated"}});
    static Inspector inspector(options, weights, Lists());
    std::vector<Remark> remarks;
    std::vector<Remark> again;
    inspector.Inspect(record, 1, remarks);
    inspector.Inspect(record, 1, again);
    Expect(remarks.size() == again.size(), "a record is held to rules without regard to others");
    for (std::size_t i = 0; i < remarks.size(); ++i) {
        Expect(IsUtf8(RemarkLine(remarks[i])), "what a rule says can be shown");
        Expect(HasField(record, remarks[i].place), "a rule speaks of a field that is there");
        Expect(RemarkLine(remarks[i]) == RemarkLine(again[i]), "a second look finds the same");
    }
}

}  // namespace
}  // namespace quillory::fuzz

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace quillory;
    static Checker checker = fuzz::MakeStrictChecker();
    fuzz::ForEachRecord(data, size, [](const Item& item) {
        fuzz::Check(checker, item.record);
        fuzz::Inspect(checker.GetOptions(), item.record);
    });
    return 0;
}

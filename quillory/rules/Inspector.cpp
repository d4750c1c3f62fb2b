#include <quillory/coded/Material.h>
#include <quillory/exchange/RecordCharset.h>
#include <quillory/rules/Inspector.h>
#include <quillory/text/Trimmed.h>

namespace quillory {
namespace {

CheckerOptions FindingAll(CheckerOptions options) {
    options.findsAll = true;
    return options;
}

// What the rules about structure find by themselves, with more to say.
bool IsFoundByStructure(zorby::E_ERROR_CODE code) {
    return code == zorby::EC_NotMARC || code == zorby::EC_NotRepeatable;
}

}  // namespace

Inspector::Inspector(CheckerOptions options, const RuleWeights& weights, const CodeLists& lists)
    : options_(options),
      checker_(FindingAll(options)),
      weights_(weights),
      record_(checker_.GetFieldRules()),
      coded_(lists) {
    weights_.Follow(checker_.GetPolicy());
}

void Inspector::Inspect(const Record& record, std::uint64_t number, std::vector<Remark>& remarks) {
    remarks.clear();
    RemarkSink sink(weights_, remarks);
    CheckBytes(record, sink);
    if (IsBibliographic(record.leader)) {
        record_.Take(record);
        coded_.Check(record_, sink);
        CheckStructure(record_, options_.allowLocal, sink);
        CheckNumbers(record_, sink);
        CheckTitleFields(record_, sink);
        CheckMediaTypes(record_, sink);
        CheckLinks(record_, sink);
        CheckNeeds(record_, sink);
    }
    TakeFindings(record, sink);
    CheckControlNumber(record, number, sink);
}

void Inspector::TakeFindings(const Record& record, RemarkSink& remarks) {
    checker_.Check(record, findings_);
    for (const Finding& finding : findings_) {
        if (!IsFoundByStructure(finding.code)) remarks.Add(RuleOf(finding.code).id, finding.place);
    }
}

void Inspector::CheckBytes(const Record& record, RemarkSink& remarks) const {
    const bool isUtf8 =
        options_.charset == kCharsetUtf8 ||
        (options_.charset == kCharsetAuto && record.leader[zorby::kLeaderCharacterCode] == 'a');
    if (!isUtf8 || !remarks.Wants(RuleId::InvalidBytes)) return;
    if (const auto invalid = FirstInvalidByte(record)) {
        remarks.Add(RuleId::InvalidBytes, invalid->fault.place, "byte " + HexText(*invalid->at));
    }
}

void Inspector::CheckControlNumber(const Record& record, std::uint64_t number,
                                   RemarkSink& remarks) {
    const std::string_view controlNumber = Trimmed(record.ControlNumber());
    if (controlNumber.empty() || !remarks.Wants(RuleId::ControlNumberRepeated)) return;
    if (auto first = numbers_.Meet(controlNumber, number)) {
        remarks.Add(RuleId::ControlNumberRepeated, Place::OfField(1U, 1), std::move(*first));
    }
}

}  // namespace quillory

#include <quillory/rules/MediaTypes.h>
#include <quillory/rules/RuleFamilies.h>
#include <quillory/text/Trimmed.h>
#include <quillory/text/Visible.h>

#include <algorithm>

namespace quillory {
namespace {

bool IsSameTerm(std::string_view one, std::string_view other) {
    const auto lower = [](char c) {
        return 'A' <= c && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
    };
    return std::ranges::equal(one, other, {}, lower, lower);
}

// Terms and codes belong together where there is one of each.
void CheckTerm(const RecordInHand& record, const CheckedField& field, RemarkSink& remarks) {
    const auto subfields = record.SubfieldsOf(field);
    const bool isPair = std::ranges::count(subfields, 'a', &SubfieldInHand::code) == 1 &&
                        std::ranges::count(subfields, 'b', &SubfieldInHand::code) == 1;
    if (!isPair) return;
    const std::string_view code = Trimmed(record.TextOf(field, 'b'));
    const std::string_view term = MediaTermOf(field.number, code);
    if (term.empty() || IsSameTerm(Trimmed(record.TextOf(field, 'a')), term)) return;
    remarks.Add(RuleId::MediaTermAgainstCode, field.GetPlace().Subfield('a'), std::string(code),
                std::string(term));
}

void CheckField(const RecordInHand& record, const CheckedField& field, RemarkSink& remarks) {
    const std::string_view list = MediaListOf(field.number);
    const std::string_view source = Trimmed(record.TextOf(field, '2'));
    // "rdacontent/ger" has the same codes, and terms in another language.
    if (source.substr(0, source.find('/')) != list) return;
    for (const auto& [code, text] : record.SubfieldsOf(field)) {
        if (code != 'b' || !MediaTermOf(field.number, Trimmed(text)).empty()) continue;
        remarks.Add(RuleId::MediaCodeUnknown, field.GetPlace().Subfield('b'),
                    '"' + Visible(text) + '"', std::string(list));
    }
    if (source == list) CheckTerm(record, field, remarks);
}

}  // namespace

void CheckMediaTypes(const RecordInHand& record, RemarkSink& remarks) {
    record.ForEachOf({336, 337, 338},
                     [&](const CheckedField& field) { CheckField(record, field, remarks); });
}

}  // namespace quillory

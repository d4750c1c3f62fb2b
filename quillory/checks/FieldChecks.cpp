#include <quillory/checks/FieldChecks.h>
#include <zorby/checking/RecordError.h>

#include <algorithm>

namespace quillory {
namespace {

using namespace zorby;

constexpr std::size_t kMostOfSubfield = kLongestExportedSubfield;
constexpr std::size_t kMostOfField = kLongestExportedField;

// Letters and digits: a tag that a library or a system has made up for itself.
bool IsMadeUpTag(std::string_view tag) {
    return std::ranges::all_of(tag, [](char c) {
        return ('0' <= c && c <= '9') || ('a' <= (c | 0x20) && (c | 0x20) <= 'z');
    });
}

E_ERROR_CODE ManyMainEntries(unsigned firstTag) {
    switch (firstTag) {
        case 100:
            return EC_ManyMainEntriesPersonal;
        case 110:
            return EC_ManyMainEntriesCorporate;
        case 111:
            return EC_ManyMainEntriesMeeting;
        default:
            return EC_ManyMainEntriesUniformTitle;
    }
}

void CheckLength(const FieldInHand& inHand, FindingSink& findings) {
    const CheckedField& field = inHand.field;
    findings.Add(EC_FieldTooLong, field.GetPlace());
    for (const auto& [code, text] : inHand.Subfields()) {
        if (text.size() <= kMostOfSubfield) continue;
        findings.Add(EC_SubfieldTooLong, field.GetPlace().Subfield(code));
    }
}

void CheckMainEntry(const FieldInHand& inHand, FindingSink& findings) {
    const CheckedField& field = inHand.field;
    const unsigned first = inHand.facts.mainEntry;
    if (first != 0) findings.Add(ManyMainEntries(first), field.GetPlace());
}

void CheckTitles(const FieldInHand& inHand, FindingSink& findings) {
    const CheckedField& field = inHand.field;
    bool hasTitle = !inHand.facts.title.empty();
    for (const auto& [code, text] : inHand.Subfields()) {
        if (code != 'a' || !HasText(text)) continue;
        if (hasTitle) findings.Add(EC_TooManyTitles, field.GetPlace().Subfield('a'));
        hasTitle = true;
    }
}

// A linked field has the subfields of the field whose text it gives in another script.
const FieldRule& RuleFor(const FieldInHand& inHand) {
    const FieldRule* rule = inHand.field.rule;
    if (rule->role != kRoleLinked) return *rule;
    for (const auto& [code, text] : inHand.Subfields()) {
        const unsigned tag = code == '6' ? TagNumber(text.substr(0, kTagSize)) : kNoTag;
        if (tag != kNoTag && inHand.record.RuleOf(tag).isKnown) rule = &inHand.record.RuleOf(tag);
    }
    return *rule;
}

// Names each code once a field.
void CheckSubfields(const FieldInHand& inHand, FindingSink& findings) {
    const FieldRule& rule = RuleFor(inHand);
    if (rule.IsUsual(inHand.field.codes, inHand.field.repeated)) return;
    ByteSet seen;
    ByteSet repeated;
    for (const auto& [code, text] : inHand.Subfields()) {
        const Place place = inHand.field.GetPlace().Subfield(code);
        if (!seen.Has(code)) {
            seen.Add(code);
            if (!rule.codes.Has(code)) findings.Add(EC_NotMARC, place);
        } else if (rule.codes.Has(code) && !rule.repeatableCodes.Has(code) && !repeated.Has(code)) {
            repeated.Add(code);
            findings.Add(EC_NotRepeatable, place);
        }
    }
}

void CheckDictionary(const FieldInHand& inHand, FindingSink& findings) {
    const CheckedField& field = inHand.field;
    const bool isNumber = field.number != kNoTag;
    const bool isKnown =
        isNumber ? field.rule->isKnown : inHand.allowsLocal && IsMadeUpTag(field.tag);
    if (!isKnown) findings.Add(EC_NotMARC, field.GetPlace());
    if (!isKnown || !isNumber) return;
    if (!field.rule->isRepeatable && field.occurrence > 1) {
        findings.Add(EC_NotRepeatable, field.GetPlace());
    }
    if (field.IsData()) CheckSubfields(inHand, findings);
}

constexpr E_ERROR_CODE kOfLength[] = {EC_FieldTooLong, EC_SubfieldTooLong};
constexpr E_ERROR_CODE kOfMainEntry[] = {EC_ManyMainEntriesPersonal, EC_ManyMainEntriesCorporate,
                                         EC_ManyMainEntriesMeeting, EC_ManyMainEntriesUniformTitle};
constexpr E_ERROR_CODE kOfTitles[] = {EC_TooManyTitles};
constexpr E_ERROR_CODE kOfDictionary[] = {EC_NotMARC, EC_NotRepeatable};

// To add a check of fields, add its row here.
constexpr FieldCheck kChecks[] = {
    {true, {}, kMostOfField + 1, kOfLength, CheckLength},
    {false, kRoleMainEntry, 0, kOfMainEntry, CheckMainEntry},
    {false, kRoleTitle, 0, kOfTitles, CheckTitles},
    {false, {}, 0, kOfDictionary, CheckDictionary},
};

}  // namespace

std::span<const FieldCheck> FieldChecks() {
    return kChecks;
}

}  // namespace quillory

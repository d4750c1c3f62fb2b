#include <quillory/checks/FieldChecks.h>
#include <quillory/exchange/Subfields.h>
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

void CheckLength(const FieldInHand& field, FindingSink& findings) {
    if (field.field.content.size() <= kMostOfField) return;
    findings.Add(EC_FieldTooLong, field.place);
    if (field.tag < kFirstDataTag) return;
    ForEachSubfield(field.field.content, [&](char code, std::string_view text) {
        if (text.size() > kMostOfSubfield) {
            findings.Add(EC_SubfieldTooLong, field.place.Subfield(code));
        }
    });
}

void CheckMainEntry(const FieldInHand& field, FindingSink& findings) {
    if (field.tag == kNoTag || field.rules.Of(field.tag).role != kRoleMainEntry) return;
    const unsigned first = field.facts.mainEntry;
    if (first != 0) findings.Add(ManyMainEntries(first), field.place);
}

void CheckTitles(const FieldInHand& field, FindingSink& findings) {
    if (field.tag == kNoTag || field.rules.Of(field.tag).role != kRoleTitle) return;
    bool hasTitle = !field.facts.title.empty();
    ForEachSubfield(field.field.content, [&](char code, std::string_view text) {
        if (code != 'a' || !HasText(text)) return;
        if (hasTitle) findings.Add(EC_TooManyTitles, field.place.Subfield('a'));
        hasTitle = true;
    });
}

// A linked field has the subfields of the field whose text it gives in another script.
const FieldRule& RuleFor(const FieldInHand& field) {
    const FieldRule* rule = &field.rules.Of(field.tag);
    if (rule->role != kRoleLinked) return *rule;
    ForEachSubfield(field.field.content, [&](char code, std::string_view text) {
        const unsigned tag = code == '6' ? TagNumber(text.substr(0, kTagSize)) : kNoTag;
        if (tag != kNoTag && field.rules.Of(tag).isKnown) rule = &field.rules.Of(tag);
    });
    return *rule;
}

// Names each code once a field.
void CheckSubfields(const FieldInHand& field, FindingSink& findings) {
    const FieldRule& rule = RuleFor(field);
    if (rule.hasAnyCodes) return;
    Codes seen;
    Codes repeated;
    ForEachSubfield(field.field.content, [&](char code, std::string_view) {
        const std::size_t i = IndexOf(code);
        if (!seen[i]) {
            seen.set(i);
            if (!rule.codes[i]) findings.Add(EC_NotMARC, field.place.Subfield(code));
        } else if (rule.codes[i] && !rule.repeatableCodes[i] && !repeated[i]) {
            repeated.set(i);
            findings.Add(EC_NotRepeatable, field.place.Subfield(code));
        }
    });
}

void CheckDictionary(const FieldInHand& field, FindingSink& findings) {
    if (!findings.Wants(EC_NotMARC) && !findings.Wants(EC_NotRepeatable)) return;
    const bool isNumber = field.tag != kNoTag;
    const bool isKnown = isNumber ? field.rules.Of(field.tag).isKnown
                                  : field.allowsLocal && IsMadeUpTag(field.place.Tag());
    if (!isKnown) findings.Add(EC_NotMARC, field.place);
    if (!isKnown || !isNumber) return;
    if (!field.rules.Of(field.tag).isRepeatable && field.place.occurrence > 1) {
        findings.Add(EC_NotRepeatable, field.place);
    }
    if (!field.field.IsControlField()) CheckSubfields(field, findings);
}

// To add a check of fields, add its row here.
constexpr FieldCheck kChecks[] = {
    {true, CheckLength},
    {false, CheckMainEntry},
    {false, CheckTitles},
    {false, CheckDictionary},
};

}  // namespace

std::span<const FieldCheck> FieldChecks() {
    return kChecks;
}

}  // namespace quillory

#include <quillory/checks/FieldRules.h>
#include <quillory/holdings/HoldingsSystem.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/text/TagArray.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace quillory {
namespace {

using zorby::CMARCFormat;

void AllowCode(FieldRule& rule, char code, bool repeatable) {
    rule.codes.Add(code);
    if (repeatable) rule.repeatableCodes.Add(code);
}

constexpr char kBlank = '_';  // as an indicator in the dictionary

// How the dictionary marks what the format has withdrawn.
bool IsObsolete(std::string_view name) {
    return name.ends_with(" (obsolete)");
}

// $9, and the graphic symbols of ASCII.
constexpr auto kLocalCodes = [] {
    ByteSet codes;
    for (char code = '!'; code <= '~'; ++code) {
        const bool isDigit = '0' <= code && code <= '9';
        const bool isLetter = 'a' <= (code | 0x20) && (code | 0x20) <= 'z';
        if (code == '9' || (!isDigit && !isLetter)) codes.Add(code);
    }
    return codes;
}();

// Field 490 belongs to the format. So did 009, which is now left to libraries.
bool IsLocalTag(unsigned tag) {
    const bool has9 = tag / 100 == 9 || tag / 10 % 10 == 9 || tag % 10 == 9;
    return has9 && tag != 490;
}

}  // namespace

bool NamesSource(std::string_view name) {
    return name.ends_with(" in subfield $2") || name.ends_with(" in $2");
}

FieldRules::FieldRules(bool allowLocal) : rules_(kTags) {
    AddDictionary();
    AddHoldings();
    AddRoles();
    if (allowLocal) AllowLocal();
    Finish();
}

FieldRules::FieldRules(std::vector<FieldRule> rules, bool allowLocal) : rules_(std::move(rules)) {
    AllowAlternateGraphics();
    if (allowLocal) AllowLocal();
    Finish();
}

void FieldRules::AddDictionary() {
    const auto tags = CMARCFormat::AllTags(0, kTags - 1);
    for (const unsigned tag : *tags) {
        const zorby::CInfoAboutField* field = CMARCFormat::FindField(tag);
        if (field == nullptr) AllowAny(tag);  // a field of the holdings in force
        FieldRule& rule = rules_[tag];
        rule.isKnown = true;
        rule.isRepeatable = field == nullptr || field->Repeatable() != 0;
        rule.isObsolete = field != nullptr && IsObsolete(field->GetName());
        std::string codes;
        CMARCFormat::AllSubfieldCodes(tag, codes);
        for (const char code : codes) {
            const zorby::CInfoAboutSubfield* subfield = CMARCFormat::FindSubfield(tag, code);
            AllowCode(rule, code, subfield == nullptr || subfield->Repeatable() != 0);
            if (subfield != nullptr && IsObsolete(subfield->GetName())) {
                rule.obsoleteCodes.Add(code);
            }
        }
        AddIndicators(tag);
        // Fields of the user's own may also name an institution and links between fields.
        if (CMARCFormat::IsUDField(tag) == 0) continue;
        for (const char code : {'5', '6', '8'}) AllowCode(rule, code, true);
    }
}

void FieldRules::AddIndicators(unsigned tag) {
    for (int which = 1; which <= 2; ++which) {
        IndicatorRule& rule = rules_[tag].indicators[static_cast<std::size_t>(which - 1)];
        const auto* value = CMARCFormat::GetIndicatorValueMatchFirst(tag, which);
        for (; value != nullptr; value = CMARCFormat::GetIndicatorValueMatchNext(tag, which)) {
            const char byte = value->GetValue() == kBlank ? ' ' : value->GetValue();
            ByteSet& values = IsObsolete(value->GetName()) ? rule.obsolete : rule.current;
            values.Add(byte);
            if (NamesSource(value->GetName())) rule.sourced.Add(byte);
        }
    }
}

void FieldRules::AddHoldings() {
    // The holdings fields of the bibliographic format itself.
    for (const unsigned tag : {852U, 863U, 864U, 865U, 866U, 867U, 868U, 876U, 877U, 878U}) {
        rules_[tag].isHoldings = true;
    }
    const HoldingsSystem system = HoldingsSystemInForce();
    const zorby::CInfoAboutHoldingsType* type = system.type;
    for (const unsigned tag : system.tags) {
        if (!rules_[tag].isKnown) AllowAny(tag);
        rules_[tag].isHoldings = true;
    }
    for (int i = 0; type != nullptr && i < type->GetSize(); ++i) {
        const zorby::CInfoAboutHoldingsField& element = *type->GetAt(i);
        const unsigned tag = element.GetTag();
        if (tag < kTags && rules_[tag].isHoldings && element.GetSubfield() >= ' ') {
            AllowCode(rules_[tag], static_cast<char>(element.GetSubfield()), true);
        }
    }
}

void FieldRules::AddRoles() {
    for (const unsigned tag : {100U, 110U, 111U, 130U}) rules_[tag].role = kRoleMainEntry;
    rules_[245].role = kRoleTitle;
    for (const unsigned tag : {260U, 264U}) rules_[tag].role = kRolePublication;
    rules_[300].role = kRoleExtent;
    for (unsigned tag = 500; tag < 600; ++tag) rules_[tag].role = kRoleNote;
    for (unsigned tag = 600; tag < 700; ++tag) rules_[tag].role = kRoleSubject;
    rules_[880].role = kRoleLinked;
}

// Field 880 has the subfields of the field that it is linked to.
void FieldRules::AllowAlternateGraphics() {
    FieldRule& rule = rules_[880];
    rule.role = kRoleLinked;
    for (char code = 'a'; code <= 'z'; ++code) AllowCode(rule, code, true);
    for (char code = '0'; code <= '9'; ++code) AllowCode(rule, code, true);
}

void FieldRules::AllowLocal() {
    for (unsigned tag = 0; tag < kTags; ++tag) {
        if (IsLocalTag(tag) && !rules_[tag].isKnown) AllowAny(tag);
        rules_[tag].codes.AddAll(kLocalCodes);
        rules_[tag].repeatableCodes.AddAll(kLocalCodes);
    }
}

void FieldRules::AllowAny(unsigned tag) {
    rules_[tag].isKnown = true;
    rules_[tag].hasAnyCodes = true;
}

void FieldRules::Finish() {
    rules_.resize(kTags);
    rules_.emplace_back();  // for kNoTag
    for (FieldRule& rule : rules_) {
        rule.codes.Without(rule.obsoleteCodes).ForEach([&rule](unsigned char byte) {
            const char code = static_cast<char>(byte);
            const CodeSet usual = CodeSet::Of(code).LettersAndDigits();
            rule.usual.AddAll(usual);
            if (rule.repeatableCodes.Has(code)) rule.usualRepeatable.AddAll(usual);
        });
        for (IndicatorRule& values : rule.indicators) {
            values.allowed = values.current.IsEmpty() ? ByteSet::All() : values.current;
            rule.mayNameSource = rule.mayNameSource || !values.sourced.IsEmpty();
        }
    }
}

}  // namespace quillory

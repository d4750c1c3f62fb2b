#include <zorby/format/MARCFormat.h>
#include <zorby/workforms/Template.h>

namespace zorby {
namespace {

void SetText(const InfoAboutSubfieldText* found, std::string& text) {
    text = found == nullptr ? std::string() : found->GetText();
}

// Visits the entries of default data that belong to fields with this tag: those that have it, and
// those of tag 0 that continue one. To tag 0 itself belong the entries that have it.
template <class Visit>
void ForEachOfField(const CInfoAboutDefaultDataList& list, unsigned tag, Visit visit) {
    bool isInField = false;
    for (int i = 0; i < list.GetSize(); ++i) {
        const CInfoAboutDefaultData* data = list.GetAt(i);
        if (data->GetTag() == tag) {
            isInField = true;
        } else if (data->GetTag() != 0) {
            isInField = false;
        }
        if (isInField) visit(*data);
    }
}

}  // namespace

// Returns what `find` gives for this workform or, if that is null or zero, for its base.
template <class Find>
auto CTemplate::FirstOfOwnAndBase(Find find) const {
    const auto found = find(*this);
    return found || base_ == nullptr ? found : find(*base_);
}

int CTemplate::FieldRepeatable(unsigned tag) {
    const CInfoAboutField* field = CMARCFormat::FindField(tag);
    return field == nullptr ? 1 : field->Repeatable();
}

int CTemplate::FieldMandatory(unsigned tag) {
    const CInfoAboutField* field = CMARCFormat::FindField(tag);
    return field == nullptr ? 0 : field->Mandatory();
}

int CTemplate::SubfieldRepeatable(unsigned tag, char code) {
    const CInfoAboutSubfield* subfield = CMARCFormat::FindSubfield(tag, code);
    return subfield == nullptr ? 1 : subfield->Repeatable();
}

int CTemplate::SubfieldMandatory(unsigned tag, char code) {
    const CInfoAboutSubfield* subfield = CMARCFormat::FindSubfield(tag, code);
    return subfield == nullptr ? 0 : subfield->Mandatory();
}

void CTemplate::SubfieldPrompt(unsigned tag, std::string& codes) const {
    const auto* found =
        FirstOfOwnAndBase([tag](const CTemplate& t) { return t.prompts_.Find(tag); });
    if (found == nullptr) {
        CMARCFormat::GetSubfieldsToPromptFor(tag, codes);
    } else {
        codes = found->GetCodes();
    }
}

void CTemplate::SubfieldRules(unsigned tag, char code, std::string& text) const {
    SetText(FirstOfOwnAndBase([&](const CTemplate& t) { return t.rules_.Find(tag, code); }), text);
}

void CTemplate::SubfieldReminders(unsigned tag, char code, std::string& text) const {
    SetText(FirstOfOwnAndBase([&](const CTemplate& t) { return t.reminders_.Find(tag, code); }),
            text);
}

void CTemplate::SubfieldExamples(unsigned tag, char code, std::string& text) const {
    SetText(FirstOfOwnAndBase([&](const CTemplate& t) { return t.examples_.Find(tag, code); }),
            text);
}

int CTemplate::FieldPriority(unsigned tag) const {
    const auto* found =
        FirstOfOwnAndBase([tag](const CTemplate& t) { return t.fieldPriorities_.Find(tag); });
    return found == nullptr ? 0 : found->GetPriority();
}

int CTemplate::SubfieldPriority(unsigned tag, char code) const {
    const auto* found = FirstOfOwnAndBase(
        [&](const CTemplate& t) { return t.subfieldPriorities_.Find(tag, code); });
    return found == nullptr ? 0 : found->GetPriority();
}

char CTemplate::FieldIndicator(unsigned tag, int which) const {
    const char found = FirstOfOwnAndBase(
        [&](const CTemplate& t) { return t.indicatorDefaults_.DefaultIndicator(tag, which); });
    return found == '\0' ? CMARCFormat::DefaultIndicator(tag, which) : found;
}

void CTemplate::MARCInfoIndicatorExplanationFor(unsigned tag, int which, std::string& text) const {
    text.clear();
    FirstOfOwnAndBase([&](const CTemplate& t) {
        t.indicatorExplanations_.GetIndicatorExplanationFor(tag, which, text);
        return !text.empty();
    });
    if (text.empty()) CMARCFormat::GetIndicatorExplanationFor(tag, which, text);
    if (text.empty()) text = "This is an undefined indicator";
}

void CTemplate::MARCInfoIndicatorNameFor(unsigned tag, int which, EDISPLAYOPTIONS option,
                                         std::string& text) const {
    indicatorNames_.GetIndicatorNameFor(tag, which, option, text);
}

void CTemplate::GetNameOfFieldAndSubfield(unsigned tag, char code, std::string& field,
                                          std::string& subfield, EDISPLAYOPTIONS option) {
    CMARCFormat::FieldName(tag, option, field);
    CMARCFormat::SubfieldName(tag, code, option, subfield);
}

const CInfoAboutDefaultData* CTemplate::GetDefaultDataAt(int index) const {
    return defaultData_.GetAt(index);
}

const CInfoAboutDefaultData* CTemplate::GetDefaultDataFirst(unsigned tag) {
    const CInfoAboutDefaultData* data = defaultData_.GetFirst();
    return data == nullptr || tag == 0 || data->GetTag() == tag ? data : GetDefaultDataNext(tag);
}

const CInfoAboutDefaultData* CTemplate::GetDefaultDataNext(unsigned tag) {
    const CInfoAboutDefaultData* data = defaultData_.GetNext();
    while (data != nullptr && tag != 0 && data->GetTag() != tag) data = defaultData_.GetNext();
    return data;
}

int CTemplate::DefaultDataIncludes(unsigned tag, char code) const {
    int included = 0;
    ForEachOfField(defaultData_, tag, [&](const CInfoAboutDefaultData& data) {
        if (data.GetSubCode() == code) included = 1;
    });
    return included;
}

std::string CTemplate::SubsInTemplateOrder(unsigned tag) const {
    std::string codes;
    ForEachOfField(defaultData_, tag,
                   [&](const CInfoAboutDefaultData& data) { codes += data.GetSubCode(); });
    if (codes.empty()) CMARCFormat::AllSubfieldCodes(tag, codes);
    return codes;
}

}  // namespace zorby

#include <zorby/archive/detail/SerializeItems.h>
#include <zorby/format/InfoAboutIndicator.h>
#include <zorby/format/detail/DisplayText.h>

#include <algorithm>

namespace zorby {
namespace {

EDISPLAYOPTIONS KnownOrNameAndCode(EDISPLAYOPTIONS option) {
    return EDO_NameAndCode <= option && option <= EDO_CodeOnly ? option : EDO_NameAndCode;
}

auto Matches(int which) {
    return [which](const auto& record) { return record.GetWhich() == which; };
}

}  // namespace

const CRuntimeClass CInfoAboutIndicatorName::kRuntimeClass =
    RuntimeClassOf<CInfoAboutIndicatorName>("CInfoAboutIndicatorName");
const CRuntimeClass CInfoAboutIndicatorNameList::kRuntimeClass =
    RuntimeClassOf<CInfoAboutIndicatorNameList>("CInfoAboutIndicatorNameList");
const CRuntimeClass CInfoAboutIndicatorExplanation::kRuntimeClass =
    RuntimeClassOf<CInfoAboutIndicatorExplanation>("CInfoAboutIndicatorExplanation");
const CRuntimeClass CInfoAboutIndicatorExplanationList::kRuntimeClass =
    RuntimeClassOf<CInfoAboutIndicatorExplanationList>("CInfoAboutIndicatorExplanationList");
const CRuntimeClass CInfoAboutIndicatorValue::kRuntimeClass =
    RuntimeClassOf<CInfoAboutIndicatorValue>("CInfoAboutIndicatorValue");
const CRuntimeClass CInfoAboutIndicatorValueList::kRuntimeClass =
    RuntimeClassOf<CInfoAboutIndicatorValueList>("CInfoAboutIndicatorValueList");
const CRuntimeClass CInfoAboutIndicatorDefault::kRuntimeClass =
    RuntimeClassOf<CInfoAboutIndicatorDefault>("CInfoAboutIndicatorDefault");
const CRuntimeClass CInfoAboutIndicatorDefaultList::kRuntimeClass =
    RuntimeClassOf<CInfoAboutIndicatorDefaultList>("CInfoAboutIndicatorDefaultList");

void CInfoAboutIndicatorName::Serialize(CArchive& archive) {
    SerializeItems(archive, tag_, which_, name_);
}

void CInfoAboutIndicatorName::Create(unsigned tag, int which, std::string_view name) {
    tag_ = tag;
    which_ = which;
    name_ = name;
}

void CInfoAboutIndicatorName::GetName(EDISPLAYOPTIONS option, std::string& text) const {
    const char* label = which_ == 1 ? "First indicator" : "Second indicator";
    DisplayText(KnownOrNameAndCode(option), name_, label, text);
}

const CInfoAboutIndicatorName* CInfoAboutIndicatorNameList::Find(unsigned tag, int which) const {
    return FindFirst(tag, Matches(which));
}

void CInfoAboutIndicatorNameList::AddIndicatorName(unsigned tag, int which, std::string_view name) {
    AppendNew(tag, which, name);
}

void CInfoAboutIndicatorNameList::GetIndicatorNameFor(unsigned tag, int which,
                                                      EDISPLAYOPTIONS option,
                                                      std::string& text) const {
    const CInfoAboutIndicatorName* name = Find(tag, which);
    if (name) name->GetName(option, text);
    if (!name || text.empty()) text = "Indicator " + std::to_string(which);
}

void CInfoAboutIndicatorExplanation::Serialize(CArchive& archive) {
    SerializeItems(archive, tag_, which_, explanation_);
}

void CInfoAboutIndicatorExplanation::Create(unsigned tag, int which, std::string_view explanation) {
    tag_ = tag;
    which_ = which;
    explanation_ = explanation;
}

const CInfoAboutIndicatorExplanation* CInfoAboutIndicatorExplanationList::Find(unsigned tag,
                                                                               int which) const {
    return FindFirst(tag, Matches(which));
}

void CInfoAboutIndicatorExplanationList::AddIndicatorExpl(unsigned tag, int which,
                                                          std::string_view explanation) {
    AppendNew(tag, which, explanation);
}

void CInfoAboutIndicatorExplanationList::GetIndicatorExplanationFor(unsigned tag, int which,
                                                                    std::string& text) const {
    if (const auto* explanation = Find(tag, which)) text = explanation->GetExplanation();
}

void CInfoAboutIndicatorValue::Serialize(CArchive& archive) {
    SerializeItems(archive, tag_, which_, value_, name_);
}

void CInfoAboutIndicatorValue::Create(unsigned tag, int which, char value, std::string_view name) {
    value_ = value;
    name_ = name;
    tag_ = tag;
    which_ = which;
}

void CInfoAboutIndicatorValue::Name(EDISPLAYOPTIONS option, std::string& text) const {
    DisplayText(KnownOrNameAndCode(option), name_, {&value_, 1}, text);
}

void CInfoAboutIndicatorValueList::AddIndicatorValue(unsigned tag, int which, char value,
                                                     std::string_view name) {
    AppendNew(tag, which, value, name);
}

const CInfoAboutIndicatorValue* CInfoAboutIndicatorValueList::GetIndicatorValueMatchFirst(
    unsigned tag, int which) {
    cursor_ = 0;
    return GetIndicatorValueMatchNext(tag, which);
}

const CInfoAboutIndicatorValue* CInfoAboutIndicatorValueList::GetIndicatorValueMatchNext(
    unsigned tag, int which) {
    const auto positions = PositionsOf(tag);
    const auto left = std::lower_bound(positions.begin(), positions.end(), cursor_);
    const auto found = std::find_if(left, positions.end(),
                                    [&](std::size_t at) { return At(at)->GetWhich() == which; });
    if (found == positions.end()) {
        cursor_ = static_cast<std::size_t>(GetSize());
        return nullptr;
    }
    cursor_ = *found + 1;
    return At(*found);
}

void CInfoAboutIndicatorDefault::Serialize(CArchive& archive) {
    SerializeItems(archive, tag_, first_, second_);
}

void CInfoAboutIndicatorDefault::Create(unsigned tag, char first, char second) {
    tag_ = tag;
    first_ = first;
    second_ = second;
}

void CInfoAboutIndicatorDefaultList::AddIndicatorDefault(unsigned tag, char first, char second) {
    AppendNew(tag, first, second);
}

char CInfoAboutIndicatorDefaultList::DefaultIndicator(unsigned tag, int which) const {
    const CInfoAboutIndicatorDefault* indicators = FindFirst(tag);
    return indicators ? indicators->GetIndicator(which) : '\0';
}

unsigned CInfoAboutIndicatorName::GetTag() const {
    return tag_;
}

int CInfoAboutIndicatorName::GetWhich() const {
    return which_;
}

const std::string& CInfoAboutIndicatorName::GetName() const {
    return name_;
}

unsigned CInfoAboutIndicatorExplanation::GetTag() const {
    return tag_;
}

int CInfoAboutIndicatorExplanation::GetWhich() const {
    return which_;
}

const std::string& CInfoAboutIndicatorExplanation::GetExplanation() const {
    return explanation_;
}

unsigned CInfoAboutIndicatorValue::GetTag() const {
    return tag_;
}

int CInfoAboutIndicatorValue::GetWhich() const {
    return which_;
}

char CInfoAboutIndicatorValue::GetValue() const {
    return value_;
}

const std::string& CInfoAboutIndicatorValue::GetName() const {
    return name_;
}

unsigned CInfoAboutIndicatorDefault::GetTag() const {
    return tag_;
}

char CInfoAboutIndicatorDefault::GetIndicator(int which) const {
    return which == 1 ? first_ : second_;
}

}  // namespace zorby

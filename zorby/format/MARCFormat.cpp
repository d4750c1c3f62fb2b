#include <zorby/archive/detail/DataFile.h>
#include <zorby/archive/detail/SerializeItems.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/format/detail/LocalFields.h>
#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/platform/ApplicationPort.h>

#include <utility>

namespace zorby {
namespace {

constexpr char kBlank = '_';
constexpr std::size_t kTagWidth = 3;

std::unique_ptr<CMARCFormat> theOneAndOnly;

CMARCFormat& InForce() {
    static CMARCFormat empty;
    return theOneAndOnly ? *theOneAndOnly : empty;
}

char StoredIndicator(char indicator) {
    return indicator == '#' ? kBlank : indicator;
}

}  // namespace

const CRuntimeClass CMARCFormat::kRuntimeClass = RuntimeClassOf<CMARCFormat>("CMARCFormat");

CMARCFormat::CMARCFormat() = default;
CMARCFormat::~CMARCFormat() = default;

void CMARCFormat::Serialize(CArchive& archive) {
    SerializeItems(archive, name_, fields_, subfields_, explanations_, indicatorNames_, values_,
                   defaults_);
}

int CMARCFormat::InitializeYourself(std::string_view userDefined) {
    FreeYourself();
    auto loaded = std::make_unique<CMARCFormat>();
    if (!LoadDataFile(CurrentApplicationPort().Folder() + "MARCBibl.tfm", *loaded)) return 0;
    theOneAndOnly = std::move(loaded);
    AddUserDefined(userDefined);
    AddUserDefined(CHoldingsSelector::GetUDFields());
    return 1;
}

void CMARCFormat::FreeYourself() {
    theOneAndOnly.reset();
}

const CMARCFormat* CMARCFormat::TheOneAndOnly() {
    return theOneAndOnly.get();
}

void CMARCFormat::AddUserDefined(std::string_view list) {
    if (!theOneAndOnly) return;
    std::vector<std::string> entries;
    ParseUDSubfields(list, entries, 0);
    for (const std::string& entry : entries) theOneAndOnly->AddUserDefinedEntry(entry);
}

// `entry` comes from ParseUDSubfields: a tag of three digits, with or without a code.
void CMARCFormat::AddUserDefinedEntry(const std::string& entry) {
    constexpr const char* kName = "User defined";
    const auto tag = static_cast<unsigned>(std::stoul(entry.substr(0, kTagWidth)));
    if (entry.size() > kTagWidth) {
        const char code = entry[kTagWidth];
        if (!subfields_.Find(tag, code)) subfields_.AddSubfield(tag, code, kName, 1, 0, 1, 1, 1);
    } else if (!fields_.Find(tag)) {
        fields_.AddField(tag, kName, 1, 0, 1);
        defaults_.AddIndicatorDefault(tag, kBlank, kBlank);
    }
}

void CMARCFormat::RemoveUserDefined() {
    if (!theOneAndOnly) return;
    theOneAndOnly->fields_.RemoveUserDefined();
    theOneAndOnly->subfields_.RemoveUserDefined();
}

const CInfoAboutField* CMARCFormat::FindField(unsigned tag) {
    return InForce().fields_.Find(tag);
}

const CInfoAboutSubfield* CMARCFormat::FindSubfield(unsigned tag, char code) {
    return InForce().subfields_.Find(tag, code);
}

std::unique_ptr<CTagArray> CMARCFormat::AllTags(unsigned low, unsigned high) {
    auto tags = InForce().fields_.AllTags(low, high);
    AppendLocalTags(*tags);
    return tags;
}

void CMARCFormat::AllSubfieldCodes(unsigned tag, std::string& codes) {
    InForce().subfields_.AllSubfieldCodesForTag(tag, codes);
    if (const HoldingsLocalField* field = FindLocalField(tag)) codes += field->code;
}

void CMARCFormat::GetSubfieldsToPromptFor(unsigned tag, std::string& codes) {
    InForce().subfields_.GetSubfieldsToPromptFor(tag, codes);
}

int CMARCFormat::GetPriority(unsigned tag, char code) {
    return InForce().subfields_.GetPriority(tag, code);
}

int CMARCFormat::IsUDField(unsigned tag) {
    const CInfoAboutField* field = FindField(tag);
    return field && field->IsUserDefined() ? 1 : 0;
}

const CInfoAboutIndicatorValue* CMARCFormat::GetIndicatorValueMatchFirst(unsigned tag, int which) {
    return InForce().values_.GetIndicatorValueMatchFirst(tag, which);
}

const CInfoAboutIndicatorValue* CMARCFormat::GetIndicatorValueMatchNext(unsigned tag, int which) {
    return InForce().values_.GetIndicatorValueMatchNext(tag, which);
}

void CMARCFormat::GetIndicatorExplanationFor(unsigned tag, int which, std::string& text) {
    InForce().explanations_.GetIndicatorExplanationFor(tag, which, text);
}

void CMARCFormat::GetIndicatorNameFor(unsigned tag, int which, EDISPLAYOPTIONS option,
                                      std::string& text) {
    InForce().indicatorNames_.GetIndicatorNameFor(tag, which, option, text);
}

char CMARCFormat::DefaultIndicator(unsigned tag, int which) {
    return InForce().defaults_.DefaultIndicator(tag, which);
}

void CMARCFormat::AddField(unsigned tag, char first, char second, std::string_view name,
                           int repeatable, int mandatory, int) {
    fields_.AddField(tag, name, repeatable, mandatory, 0);
    defaults_.AddIndicatorDefault(tag, StoredIndicator(first), StoredIndicator(second));
}

void CMARCFormat::AddSubfield(unsigned tag, char code, std::string_view name, int repeatable,
                              int mandatory, int prompt, int priority) {
    subfields_.AddSubfield(tag, code, name, repeatable, mandatory, prompt, priority, 0);
}

void CMARCFormat::AddIndicatorValue(unsigned tag, int which, char value, std::string_view name) {
    values_.AddIndicatorValue(tag, which, StoredIndicator(value), name);
}

void CMARCFormat::AddIndicatorExpl(unsigned tag, int which, std::string_view text) {
    explanations_.AddIndicatorExpl(tag, which, text);
}

void CMARCFormat::AddIndicatorName(unsigned tag, int which, std::string_view name) {
    indicatorNames_.AddIndicatorName(tag, which, name);
}

void CMARCFormat::SetName(std::string_view name) {
    name_ = name;
}

const std::string& CMARCFormat::GetName() const {
    return name_;
}

const CInfoAboutFieldList& CMARCFormat::GetFields() const {
    return fields_;
}

const CInfoAboutSubfieldList& CMARCFormat::GetSubfields() const {
    return subfields_;
}

const CInfoAboutIndicatorDefaultList& CMARCFormat::GetIndicatorDefaults() const {
    return defaults_;
}

const CInfoAboutIndicatorNameList& CMARCFormat::GetIndicatorNames() const {
    return indicatorNames_;
}

const CInfoAboutIndicatorValueList& CMARCFormat::GetIndicatorValues() const {
    return values_;
}

const CInfoAboutIndicatorExplanationList& CMARCFormat::GetIndicatorExplanations() const {
    return explanations_;
}

}  // namespace zorby

#include <zorby/archive/detail/SerializeItems.h>
#include <zorby/workforms/Template.h>
#include <zorby/workforms/TemplateList.h>

namespace zorby {

const CRuntimeClass CTemplate::kRuntimeClass = RuntimeClassOf<CTemplate>("CTemplate");

namespace {

constexpr char kBlank = '_';

char IndicatorAt(std::string_view indicators, std::size_t position) {
    return position < indicators.size() ? indicators[position] : kBlank;
}

}  // namespace

CTemplate::CTemplate() = default;
CTemplate::~CTemplate() = default;

void CTemplate::Serialize(CArchive& archive) {
    auto material = static_cast<std::int32_t>(material_);
    SerializeItems(archive, name_, id_, baseName_, material, main_, prompts_, rules_, reminders_,
                   examples_, indicatorExplanations_, indicatorNames_, indicatorDefaults_,
                   fieldPriorities_, subfieldPriorities_, defaultData_, holdings_, additional_);
    material_ = static_cast<MaterialType>(material);
    if (archive.IsLoading()) AttachBaseTemplate();
}

void CTemplate::AttachBaseTemplate() {
    base_ = baseName_.empty() ? nullptr : CTemplateList::GetStandardTemplate(baseName_.c_str());
}

void CTemplate::CloneFrom(const CTemplate& other) {
    material_ = other.material_;
    main_.CloneFrom(other.main_);
    additional_.CloneFrom(other.additional_);
    holdings_.CloneFrom(other.holdings_);
    saved_ = 1;
    baseName_ = other.GetBaseTemplateName();
    base_ = &other;
    name_ = other.name_;
    if (other.saved_ != 0) return;
    defaultData_.RemoveAll();
    defaultData_.CloneFrom(other.defaultData_);
}

const std::string& CTemplate::GetBaseTemplateName() const {
    return baseName_.empty() ? name_ : baseName_;
}

int CTemplate::ControlFieldsSetMain(MaterialType material, CFType type006, CFType type007,
                                    std::string_view leader, std::string_view block,
                                    std::string_view field007, std::string_view field008,
                                    std::string_view second006) {
    material_ = material;
    return main_.Create(type006, type007, leader, block, field007, field008, second006);
}

void CTemplate::GetMainMaterialSettings(CFType& type006, CFType& type007, std::string& leader,
                                        std::string& block, std::string& field007,
                                        std::string& field008, std::string& second006) const {
    type006 = main_.Get006Type();
    type007 = main_.Get007Type();
    block = main_.GetBlock();
    main_.GetAll(leader, field007, field008, second006);
}

void CTemplate::AddFieldPriority(unsigned tag, int priority) {
    fieldPriorities_.AddFieldPriority(tag, priority);
}

void CTemplate::AddSubfieldPriority(unsigned tag, std::string_view codes, int priority) {
    subfieldPriorities_.AddSubfieldPriority(tag, codes, priority);
}

void CTemplate::AddSubfieldPrompt(unsigned tag, std::string_view codes) {
    prompts_.AddSubfieldPrompt(tag, codes);
}

void CTemplate::AddSubfieldRules(unsigned tag, char code, std::string_view text) {
    rules_.AddSubfieldRules(tag, code, text);
}

void CTemplate::AddSubfieldReminders(unsigned tag, char code, std::string_view text) {
    reminders_.AddSubfieldReminders(tag, code, text);
}

void CTemplate::AddSubfieldExamples(unsigned tag, char code, std::string_view text) {
    examples_.AddSubfieldExamples(tag, code, text);
}

void CTemplate::AddIndicatorDefault(unsigned tag, char first, char second) {
    indicatorDefaults_.AddIndicatorDefault(tag, first, second);
}

void CTemplate::AddIndicatorExpl(unsigned tag, int which, std::string_view text) {
    indicatorExplanations_.AddIndicatorExpl(tag, which, text);
}

void CTemplate::AddIndicatorName(unsigned tag, int which, std::string_view name) {
    indicatorNames_.AddIndicatorName(tag, which, name);
}

void CTemplate::AddDefaultData(unsigned tag, char first, char second, char code,
                               std::string_view data) {
    defaultData_.AddDefaultData(tag, first, second, code, data);
}

void CTemplate::AddDefaultData(char code, std::string_view data) {
    defaultData_.AddDefaultData(code, data);
}

void CTemplate::AddFld(unsigned tag, std::string_view indicators, std::string_view codes,
                       std::string_view promptCodes, std::string_view priorityCodes) {
    for (const char& code : codes) {
        if (&code == codes.data()) {
            AddDefaultData(tag, IndicatorAt(indicators, 0), IndicatorAt(indicators, 1), code, "");
        } else {
            AddDefaultData(code, "");
        }
    }
    if (!promptCodes.empty()) AddSubfieldPrompt(tag, promptCodes);
    AddFieldPriority(tag, 1);
    if (!priorityCodes.empty()) AddSubfieldPriority(tag, priorityCodes, 1);
}

void CTemplate::AddRET(unsigned tag, char code, std::string_view rules, std::string_view examples,
                       std::string_view reminders) {
    if (!rules.empty()) AddSubfieldRules(tag, code, rules);
    if (!examples.empty()) AddSubfieldExamples(tag, code, examples);
    if (!reminders.empty()) AddSubfieldReminders(tag, code, reminders);
}

const std::string& CTemplate::GetName() const {
    return name_;
}

void CTemplate::SetName(std::string_view name) {
    name_ = name;
}

void CTemplate::SetBaseTemplateName(std::string_view name) {
    baseName_ = name;
}

bool CTemplate::IsBaseTemplate() const {
    return base_ == nullptr;
}

int CTemplate::IsSavedTemplate() const {
    return saved_;
}

void CTemplate::SetSavedTemplate() {
    saved_ = 1;
}

void CTemplate::SetID(int id) {
    id_ = id;
}

MaterialType CTemplate::GetMaterialType() const {
    return material_;
}

const CCFMainMaterial& CTemplate::GetMainMaterial() const {
    return main_;
}

CCFAdditionalMaterialsList& CTemplate::GetAMList() {
    return additional_;
}

const CCFAdditionalMaterialsList& CTemplate::GetAMList() const {
    return additional_;
}

CHoldingsDataRecordList& CTemplate::GetHoldingsDataRecordList() {
    return holdings_;
}

const CHoldingsDataRecordList& CTemplate::GetHoldingsDataRecordList() const {
    return holdings_;
}

void CTemplate::MakeAMListFrom(CCFAdditionalMaterialsList& list) const {
    list.CloneFrom(additional_);
}

void CTemplate::MakeHoldingsListFrom(CHoldingsDataRecordList& list) const {
    list.CloneFrom(holdings_);
}

int CTemplate::GetOwnID() const {
    return id_;
}

CInfoAboutDefaultDataList& CTemplate::GetDefaultData() {
    return defaultData_;
}

const CInfoAboutDefaultDataList& CTemplate::GetDefaultData() const {
    return defaultData_;
}

const CInfoAboutFieldPriorityList& CTemplate::GetFieldPriorities() const {
    return fieldPriorities_;
}

const CInfoAboutIndicatorNameList& CTemplate::GetIndicatorNames() const {
    return indicatorNames_;
}

const CInfoAboutSubfieldExamplesList& CTemplate::GetExamples() const {
    return examples_;
}

const CInfoAboutSubfieldPromptList& CTemplate::GetPrompts() const {
    return prompts_;
}

const CInfoAboutSubfieldRemindersList& CTemplate::GetReminders() const {
    return reminders_;
}

const CInfoAboutSubfieldRulesList& CTemplate::GetRules() const {
    return rules_;
}

const CInfoAboutIndicatorDefaultList& CTemplate::GetIndicatorDefaults() const {
    return indicatorDefaults_;
}

const CInfoAboutIndicatorExplanationList& CTemplate::GetIndicatorExplanations() const {
    return indicatorExplanations_;
}

const CInfoAboutSubfieldPriorityList& CTemplate::GetSubfieldPriorities() const {
    return subfieldPriorities_;
}

}  // namespace zorby

#include <zorby/archive/detail/SerializeItems.h>
#include <zorby/format/InfoAboutSubfieldText.h>

namespace zorby {

const CRuntimeClass CInfoAboutSubfieldRules::kRuntimeClass =
    RuntimeClassOf<CInfoAboutSubfieldRules>("CInfoAboutSubfieldRules");
const CRuntimeClass CInfoAboutSubfieldRulesList::kRuntimeClass =
    RuntimeClassOf<CInfoAboutSubfieldRulesList>("CInfoAboutSubfieldRulesList");
const CRuntimeClass CInfoAboutSubfieldReminders::kRuntimeClass =
    RuntimeClassOf<CInfoAboutSubfieldReminders>("CInfoAboutSubfieldReminders");
const CRuntimeClass CInfoAboutSubfieldRemindersList::kRuntimeClass =
    RuntimeClassOf<CInfoAboutSubfieldRemindersList>("CInfoAboutSubfieldRemindersList");
const CRuntimeClass CInfoAboutSubfieldExamples::kRuntimeClass =
    RuntimeClassOf<CInfoAboutSubfieldExamples>("CInfoAboutSubfieldExamples");
const CRuntimeClass CInfoAboutSubfieldExamplesList::kRuntimeClass =
    RuntimeClassOf<CInfoAboutSubfieldExamplesList>("CInfoAboutSubfieldExamplesList");

void InfoAboutSubfieldText::Serialize(CArchive& archive) {
    SerializeItems(archive, text_, tag_, code_);
}

void InfoAboutSubfieldText::Create(unsigned tag, char code, std::string_view text) {
    code_ = code;
    tag_ = tag;
    text_ = text;
}

void CInfoAboutSubfieldRulesList::AddSubfieldRules(unsigned tag, char code, std::string_view text) {
    AppendNew(tag, code, text);
}

void CInfoAboutSubfieldRemindersList::AddSubfieldReminders(unsigned tag, char code,
                                                           std::string_view text) {
    AppendNew(tag, code, text);
}

void CInfoAboutSubfieldExamplesList::AddSubfieldExamples(unsigned tag, char code,
                                                         std::string_view text) {
    AppendNew(tag, code, text);
}

}  // namespace zorby

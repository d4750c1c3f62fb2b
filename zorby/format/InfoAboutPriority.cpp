#include <zorby/archive/detail/SerializeItems.h>
#include <zorby/format/InfoAboutPriority.h>

namespace zorby {

const CRuntimeClass CInfoAboutFieldPriority::kRuntimeClass =
    RuntimeClassOf<CInfoAboutFieldPriority>("CInfoAboutFieldPriority");
const CRuntimeClass CInfoAboutFieldPriorityList::kRuntimeClass =
    RuntimeClassOf<CInfoAboutFieldPriorityList>("CInfoAboutFieldPriorityList");
const CRuntimeClass CInfoAboutSubfieldPriority::kRuntimeClass =
    RuntimeClassOf<CInfoAboutSubfieldPriority>("CInfoAboutSubfieldPriority");
const CRuntimeClass CInfoAboutSubfieldPriorityList::kRuntimeClass =
    RuntimeClassOf<CInfoAboutSubfieldPriorityList>("CInfoAboutSubfieldPriorityList");
const CRuntimeClass CInfoAboutSubfieldPrompt::kRuntimeClass =
    RuntimeClassOf<CInfoAboutSubfieldPrompt>("CInfoAboutSubfieldPrompt");
const CRuntimeClass CInfoAboutSubfieldPromptList::kRuntimeClass =
    RuntimeClassOf<CInfoAboutSubfieldPromptList>("CInfoAboutSubfieldPromptList");

void CInfoAboutFieldPriority::Serialize(CArchive& archive) {
    SerializeItems(archive, tag_, priority_);
}

void CInfoAboutFieldPriority::Create(unsigned tag, int priority) {
    tag_ = tag;
    priority_ = priority;
}

const CInfoAboutFieldPriority* CInfoAboutFieldPriorityList::Find(unsigned tag) const {
    return FindFirst(tag);
}

void CInfoAboutFieldPriorityList::AddFieldPriority(unsigned tag, int priority) {
    AppendNew(tag, priority);
}

void CInfoAboutSubfieldPriority::Serialize(CArchive& archive) {
    SerializeItems(archive, tag_, codes_, priority_);
}

void CInfoAboutSubfieldPriority::Create(unsigned tag, std::string_view codes, int priority) {
    tag_ = tag;
    codes_ = codes;
    priority_ = priority;
}

const CInfoAboutSubfieldPriority* CInfoAboutSubfieldPriorityList::Find(unsigned tag,
                                                                       char code) const {
    return FindFirst(tag, [&](const CInfoAboutSubfieldPriority& priority) {
        return priority.GetCodes().find(code) != std::string::npos;
    });
}

void CInfoAboutSubfieldPriorityList::AddSubfieldPriority(unsigned tag, std::string_view codes,
                                                         int priority) {
    AppendNew(tag, codes, priority);
}

void CInfoAboutSubfieldPrompt::Serialize(CArchive& archive) {
    SerializeItems(archive, tag_, codes_);
}

void CInfoAboutSubfieldPrompt::Create(unsigned tag, std::string_view codes) {
    tag_ = tag;
    codes_ = codes;
}

const CInfoAboutSubfieldPrompt* CInfoAboutSubfieldPromptList::Find(unsigned tag) const {
    return FindFirst(tag);
}

void CInfoAboutSubfieldPromptList::AddSubfieldPrompt(unsigned tag, std::string_view codes) {
    AppendNew(tag, codes);
}

}  // namespace zorby

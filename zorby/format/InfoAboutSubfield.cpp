#include <zorby/archive/detail/SerializeItems.h>
#include <zorby/format/InfoAboutSubfield.h>

namespace zorby {

const CRuntimeClass CInfoAboutSubfield::kRuntimeClass =
    RuntimeClassOf<CInfoAboutSubfield>("CInfoAboutSubfield");
const CRuntimeClass CInfoAboutSubfieldList::kRuntimeClass =
    RuntimeClassOf<CInfoAboutSubfieldList>("CInfoAboutSubfieldList");

void CInfoAboutSubfield::Serialize(CArchive& archive) {
    SerializeItems(archive, name_, tag_, code_, mandatory_, repeatable_, prompt_, priority_);
    if (archive.IsLoading()) userDefined_ = 0;
}

void CInfoAboutSubfield::Create(unsigned tag, char code, std::string_view name, int repeatable,
                                int mandatory, int prompt, int priority, int userDefined) {
    code_ = code;
    tag_ = tag;
    name_ = name;
    repeatable_ = repeatable;
    mandatory_ = mandatory;
    prompt_ = prompt;
    priority_ = priority;
    userDefined_ = userDefined;
}

const CInfoAboutSubfield* CInfoAboutSubfieldList::Find(unsigned tag, char code) const {
    return FindFirst(tag, [&](const auto& subfield) { return subfield.GetCode() == code; });
}

void CInfoAboutSubfieldList::AddSubfield(unsigned tag, char code, std::string_view name,
                                         int repeatable, int mandatory, int prompt, int priority,
                                         int userDefined) {
    AppendNew(tag, code, name, repeatable, mandatory, prompt, priority, userDefined);
}

void CInfoAboutSubfieldList::AllSubfieldCodesForTag(unsigned tag, std::string& codes) const {
    for (const std::size_t at : PositionsOf(tag)) codes += At(at)->GetCode();
}

void CInfoAboutSubfieldList::GetSubfieldsToPromptFor(unsigned tag, std::string& codes) const {
    for (const std::size_t at : PositionsOf(tag)) {
        if (At(at)->Prompt()) codes += At(at)->GetCode();
    }
}

int CInfoAboutSubfieldList::GetPriority(unsigned tag, char code) const {
    const CInfoAboutSubfield* subfield = Find(tag, code);
    return subfield && subfield->Priority() ? 1 : 0;
}

void CInfoAboutSubfieldList::RemoveUserDefined() {
    RemoveIf([](const CInfoAboutSubfield& subfield) { return subfield.IsUserDefined() != 0; });
}

}  // namespace zorby

#pragma once

#include <zorby/Export.h>
#include <zorby/format/InfoAboutList.h>

#include <string>
#include <string_view>

namespace zorby {

// A subfield of a MARC field: its code, the tag of the field, its name in the Qm code, and its
// flags.
class ZORBY_EXPORT CInfoAboutSubfield : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    // Stores everything except the user-defined flag, which is 0 after loading.
    void Serialize(CArchive& archive) override;

    void Create(unsigned tag, char code, std::string_view name, int repeatable, int mandatory,
                int prompt, int priority, int userDefined);

    unsigned GetTag() const { return tag_; }
    char GetCode() const { return code_; }
    const std::string& GetName() const { return name_; }
    void GetName(std::string& name) const { name = name_; }
    // In this order: nonzero if the subfield may repeat, if its field must have it, if a new field
    // prompts for it, if it has priority, and if it was added at run time.
    int Repeatable() const { return repeatable_; }
    int Mandatory() const { return mandatory_; }
    int Prompt() const { return prompt_; }
    int Priority() const { return priority_; }
    int IsUserDefined() const { return userDefined_; }

private:
    char code_ = 0;
    unsigned tag_ = 0;
    std::string name_;
    int repeatable_ = 0;
    int mandatory_ = 0;
    int prompt_ = 0;
    int priority_ = 0;
    int userDefined_ = 0;
};

class ZORBY_EXPORT CInfoAboutSubfieldList : public InfoAboutList<CInfoAboutSubfield> {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    // Returns the first subfield of this tag and code, or null.
    const CInfoAboutSubfield* Find(unsigned tag, char code) const;
    void AddSubfield(unsigned tag, char code, std::string_view name, int repeatable, int mandatory,
                     int prompt, int priority, int userDefined);
    // Appends all codes of the tag, in the order of the list.
    void AllSubfieldCodesForTag(unsigned tag, std::string& codes) const;
    // Appends the codes of the tag whose prompt flag is set.
    void GetSubfieldsToPromptFor(unsigned tag, std::string& codes) const;
    // Returns 1 if the first match has the priority flag set, else 0.
    int GetPriority(unsigned tag, char code) const;
    // Deletes the records whose user-defined flag is set.
    void RemoveUserDefined();
};

}  // namespace zorby

#pragma once

#include <zorby/Export.h>
#include <zorby/format/InfoAboutList.h>

#include <string>
#include <string_view>

namespace zorby {

// A text in the Qm code that helps a cataloguer with one subfield.
class ZORBY_EXPORT InfoAboutSubfieldText : public CObject {
public:
    void Serialize(CArchive& archive) override;

    void Create(unsigned tag, char code, std::string_view text);

    unsigned GetTag() const { return tag_; }
    char GetCode() const { return code_; }
    const std::string& GetText() const { return text_; }

private:
    char code_ = 0;
    unsigned tag_ = 0;
    std::string text_;
};

template <class Text>
class ZORBY_EXPORT InfoAboutSubfieldTextList : public InfoAboutList<Text> {
public:
    // Returns the first record of this tag and code, or null.
    const Text* Find(unsigned tag, char code) const {
        return this->FindFirst(tag, [&](const Text& text) { return text.GetCode() == code; });
    }
};

class ZORBY_EXPORT CInfoAboutSubfieldRules : public InfoAboutSubfieldText {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
};

class ZORBY_EXPORT CInfoAboutSubfieldRulesList
    : public InfoAboutSubfieldTextList<CInfoAboutSubfieldRules> {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    void AddSubfieldRules(unsigned tag, char code, std::string_view text);
};

class ZORBY_EXPORT CInfoAboutSubfieldReminders : public InfoAboutSubfieldText {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
};

class ZORBY_EXPORT CInfoAboutSubfieldRemindersList
    : public InfoAboutSubfieldTextList<CInfoAboutSubfieldReminders> {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    void AddSubfieldReminders(unsigned tag, char code, std::string_view text);
};

class ZORBY_EXPORT CInfoAboutSubfieldExamples : public InfoAboutSubfieldText {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
};

class ZORBY_EXPORT CInfoAboutSubfieldExamplesList
    : public InfoAboutSubfieldTextList<CInfoAboutSubfieldExamples> {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    void AddSubfieldExamples(unsigned tag, char code, std::string_view text);
};

}  // namespace zorby

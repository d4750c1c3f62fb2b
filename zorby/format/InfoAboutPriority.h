#pragma once

#include <zorby/Export.h>
#include <zorby/format/InfoAboutList.h>

#include <string>
#include <string_view>

namespace zorby {

// The priority that a workform gives a field.
class ZORBY_EXPORT CInfoAboutFieldPriority : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    void Serialize(CArchive& archive) override;

    void Create(unsigned tag, int priority);

    unsigned GetTag() const { return tag_; }
    int GetPriority() const { return priority_; }

private:
    unsigned tag_ = 0;
    int priority_ = 0;
};

class ZORBY_EXPORT CInfoAboutFieldPriorityList : public InfoAboutList<CInfoAboutFieldPriority> {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    // Returns the first record of the tag, or null.
    const CInfoAboutFieldPriority* Find(unsigned tag) const;
    void AddFieldPriority(unsigned tag, int priority);
};

// The priority that a workform gives some subfields of a field. The codes say which.
class ZORBY_EXPORT CInfoAboutSubfieldPriority : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    void Serialize(CArchive& archive) override;

    void Create(unsigned tag, std::string_view codes, int priority);

    unsigned GetTag() const { return tag_; }
    const std::string& GetCodes() const { return codes_; }
    int GetPriority() const { return priority_; }

private:
    unsigned tag_ = 0;
    std::string codes_;
    int priority_ = 0;
};

class ZORBY_EXPORT CInfoAboutSubfieldPriorityList
    : public InfoAboutList<CInfoAboutSubfieldPriority> {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    // Returns the first record of the tag that has the code among its codes, or null.
    const CInfoAboutSubfieldPriority* Find(unsigned tag, char code) const;
    void AddSubfieldPriority(unsigned tag, std::string_view codes, int priority);
};

// The subfields that a new field prompts for. The codes say which.
class ZORBY_EXPORT CInfoAboutSubfieldPrompt : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    void Serialize(CArchive& archive) override;

    void Create(unsigned tag, std::string_view codes);

    unsigned GetTag() const { return tag_; }
    const std::string& GetCodes() const { return codes_; }

private:
    unsigned tag_ = 0;
    std::string codes_;
};

class ZORBY_EXPORT CInfoAboutSubfieldPromptList : public InfoAboutList<CInfoAboutSubfieldPrompt> {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    // Returns the first record of the tag, or null.
    const CInfoAboutSubfieldPrompt* Find(unsigned tag) const;
    void AddSubfieldPrompt(unsigned tag, std::string_view codes);
};

}  // namespace zorby

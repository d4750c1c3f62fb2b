#pragma once

#include <zorby/Export.h>
#include <zorby/format/DisplayOptions.h>
#include <zorby/format/InfoAboutList.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace zorby {

// What is known about the two indicators of a MARC field. `which` is 1 for the first and 2 for the
// second. A blank indicator is "_".

class ZORBY_EXPORT CInfoAboutIndicatorName : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    void Serialize(CArchive& archive) override;

    void Create(unsigned tag, int which, std::string_view name);

    unsigned GetTag() const;
    int GetWhich() const;
    const std::string& GetName() const;
    // Gives the name, with "First indicator" or "Second indicator" as its code. An unknown option
    // counts as EDO_NameAndCode.
    void GetName(EDISPLAYOPTIONS option, std::string& text) const;

private:
    unsigned tag_ = 0;
    int which_ = 0;
    std::string name_;
};

class ZORBY_EXPORT CInfoAboutIndicatorNameList : public InfoAboutList<CInfoAboutIndicatorName> {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    // Returns the first record of this tag and indicator, or null.
    const CInfoAboutIndicatorName* Find(unsigned tag, int which) const;
    void AddIndicatorName(unsigned tag, int which, std::string_view name);
    // Gives the text of the first match. If that is empty, or if there is no match, gives
    // "Indicator 1" or "Indicator 2".
    void GetIndicatorNameFor(unsigned tag, int which, EDISPLAYOPTIONS option,
                             std::string& text) const;
};

class ZORBY_EXPORT CInfoAboutIndicatorExplanation : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    void Serialize(CArchive& archive) override;

    void Create(unsigned tag, int which, std::string_view explanation);

    unsigned GetTag() const;
    int GetWhich() const;
    const std::string& GetExplanation() const;

private:
    unsigned tag_ = 0;
    int which_ = 0;
    std::string explanation_;
};

class ZORBY_EXPORT CInfoAboutIndicatorExplanationList
    : public InfoAboutList<CInfoAboutIndicatorExplanation> {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    // Returns the first record of this tag and indicator, or null.
    const CInfoAboutIndicatorExplanation* Find(unsigned tag, int which) const;
    void AddIndicatorExpl(unsigned tag, int which, std::string_view explanation);
    // Gives the first match. Without a match the text stays as it was.
    void GetIndicatorExplanationFor(unsigned tag, int which, std::string& text) const;
};

// One value that an indicator may have.
class ZORBY_EXPORT CInfoAboutIndicatorValue : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    void Serialize(CArchive& archive) override;

    void Create(unsigned tag, int which, char value, std::string_view name);

    unsigned GetTag() const;
    int GetWhich() const;
    char GetValue() const;
    const std::string& GetName() const;
    // Gives the name, with the value as its code. An unknown option counts as EDO_NameAndCode.
    void Name(EDISPLAYOPTIONS option, std::string& text) const;

private:
    char value_ = 0;
    std::string name_;
    unsigned tag_ = 0;
    int which_ = 0;
};

class ZORBY_EXPORT CInfoAboutIndicatorValueList : public InfoAboutList<CInfoAboutIndicatorValue> {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    void AddIndicatorValue(unsigned tag, int which, char value, std::string_view name);
    // Walk through the values of one indicator, in the order of the list, and return null at the
    // end. A list remembers only one walk, so two walks can't be mixed.
    const CInfoAboutIndicatorValue* GetIndicatorValueMatchFirst(unsigned tag, int which);
    const CInfoAboutIndicatorValue* GetIndicatorValueMatchNext(unsigned tag, int which);

private:
    std::size_t cursor_ = 0;
};

// The values of the two indicators in a new field.
class ZORBY_EXPORT CInfoAboutIndicatorDefault : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    void Serialize(CArchive& archive) override;

    void Create(unsigned tag, char first, char second);

    unsigned GetTag() const;
    // Returns the first indicator for 1, the second for any other number.
    char GetIndicator(int which) const;

private:
    unsigned tag_ = 0;
    char first_ = 0;
    char second_ = 0;
};

class ZORBY_EXPORT CInfoAboutIndicatorDefaultList
    : public InfoAboutList<CInfoAboutIndicatorDefault> {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    void AddIndicatorDefault(unsigned tag, char first, char second);
    // Returns GetIndicator of the first record of the tag, or NUL if there is none.
    char DefaultIndicator(unsigned tag, int which) const;
};

}  // namespace zorby

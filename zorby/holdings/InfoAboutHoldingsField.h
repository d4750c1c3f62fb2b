#pragma once

#include <zorby/Export.h>
#include <zorby/archive/Object.h>
#include <zorby/holdings/HoldingsID.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace zorby {

// One element of holdings data as a system keeps it. Texts are in the Qm code.
class ZORBY_EXPORT CInfoAboutHoldingsField : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    void Serialize(CArchive& archive) override;

    // `repeatDelimiter` is NUL for an element that has only one value.
    void Create(std::string_view name, unsigned tag, std::int8_t subfield, char repeatDelimiter,
                EHOLDINGSID id, int onePerRecord, std::string_view helpText);
    void SetExtraValue(std::int32_t extraValue) { extraValue_ = extraValue; }

    // The label in forms and the entry in menus.
    const std::string& GetName() const { return name_; }
    unsigned GetTag() const { return tag_; }
    // A subfield code or, below 32, a place in a subfield composed of several elements.
    std::int8_t GetSubfield() const { return subfield_; }
    // The character that separates the values in the element's text, or NUL.
    char GetRepeatDelimiter() const { return repeatDelimiter_; }
    EHOLDINGSID GetHoldingsID() const { return holdingsID_; }
    // Nonzero if a MARC record may have the field only once.
    int OnePerRecord() const { return onePerRecord_; }
    // A number that is kept for the host.
    std::int32_t GetExtraValue() const { return extraValue_; }
    const std::string& GetHelpText() const { return helpText_; }

private:
    std::string name_;
    unsigned tag_ = 0;
    std::int8_t subfield_ = 0;
    char repeatDelimiter_ = 0;
    EHOLDINGSID holdingsID_ = {};
    int onePerRecord_ = 0;
    std::int32_t extraValue_ = 0;
    std::string helpText_;
};

}  // namespace zorby

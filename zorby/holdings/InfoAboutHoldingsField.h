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
    void SetExtraValue(std::int32_t extraValue);

    // The label in forms and the entry in menus.
    const std::string& GetName() const;
    unsigned GetTag() const;
    // A subfield code or, below 32, a place in a subfield composed of several elements.
    std::int8_t GetSubfield() const;
    // The character that separates the values in the element's text, or NUL.
    char GetRepeatDelimiter() const;
    EHOLDINGSID GetHoldingsID() const;
    // Nonzero if a MARC record may have the field only once.
    int OnePerRecord() const;
    // A number that is kept for the host.
    std::int32_t GetExtraValue() const;
    const std::string& GetHelpText() const;

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

#pragma once

#include <zorby/Export.h>
#include <zorby/holdings/HoldingsType.h>
#include <zorby/holdings/InfoAboutHoldingsField.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// A holdings system: its names, and its elements in the order of entry forms and menus.
class ZORBY_EXPORT CInfoAboutHoldingsType : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    // Loading appends names and fields to those that are there.
    void Serialize(CArchive& archive) override;

    // `name` becomes the only name. The fields stay. The flags and the option are kept for the
    // host.
    void Create(std::string_view name, EHOLDINGSTYPE type, std::uint32_t typeFlags, int typeOption);
    void AddOldName(std::string_view name);
    void AddField(std::string_view name, unsigned tag, std::int8_t subfield, char repeatDelimiter,
                  EHOLDINGSID id, int onePerRecord, std::string_view helpText);
    void AddField(std::string_view name, std::int32_t extraValue, unsigned tag,
                  std::int8_t subfield, char repeatDelimiter, EHOLDINGSID id, int onePerRecord,
                  std::string_view helpText);

    // Returns the present name, or an empty text if there is none.
    std::string GetName() const;
    // The present name comes first, then the former ones.
    const std::vector<std::string>& GetNames() const;
    EHOLDINGSTYPE GetHoldingsTypeID() const;
    std::uint32_t GetTypeFlags() const;
    int GetTypeOption() const;

    // The number of fields.
    int GetSize() const;
    // Returns null outside the list. The lookups return null if no field matches.
    const CInfoAboutHoldingsField* GetAt(int index) const;
    const CInfoAboutHoldingsField* GetFieldInfo(EHOLDINGSID id) const;
    const CInfoAboutHoldingsField* FindFieldAndSubfield(unsigned tag, std::int8_t subfield) const;
    // Gives an empty text for an unknown element.
    void GetFieldNameFromID(EHOLDINGSID id, std::string& name) const;
    std::string GetHelpStringForID(EHOLDINGSID id) const;

    bool FindField(unsigned tag) const;
    // Returns whether any field of the tag may occur only once.
    bool FieldIsOnePerRecord(unsigned tag) const;
    // Returns the tags of the fields, each once, without leading zeros, separated by ",". A tag is
    // left out if its digits are already somewhere in the text. HT_MANDARIN_EZ has "001,852,989".
    std::string GetCurrentHoldingsFields() const;

private:
    std::uint32_t typeFlags_ = 0;
    std::vector<std::string> names_;
    EHOLDINGSTYPE holdingsTypeID_ = HT_NONE;
    std::vector<std::unique_ptr<CInfoAboutHoldingsField>> fields_;
    int typeOption_ = 0;
};

}  // namespace zorby

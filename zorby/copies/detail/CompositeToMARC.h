#pragma once

#include <zorby/copies/HoldingsDataRecord.h>
#include <zorby/holdings/HoldingsTypeTable.h>
#include <zorby/holdings/InfoAboutHoldingsField.h>

#include <string>
#include <string_view>

namespace zorby {

// The subfield that a system composes of several elements of a copy.
class CompositeToMARC {
public:
    // `composite` is null for a system without a composed subfield.
    explicit CompositeToMARC(const HoldingsComposite* composite) : composite_(composite) {}

    // Take a value that belongs in the subfield. They return false for any other value.
    bool Take(const CInfoAboutHoldingsField& info, std::string_view text);
    bool Take(const HoldingItemHold& hold);

    bool IsEmpty() const { return text_.empty(); }
    char Code() const { return composite_->code; }
    const std::string& Text() const { return text_; }

private:
    void AddPart(std::string_view lead, std::string_view value);
    void AddParts(std::string_view lead, std::string_view text, char delimiter);

    const HoldingsComposite* composite_;
    std::string text_;
};

}  // namespace zorby

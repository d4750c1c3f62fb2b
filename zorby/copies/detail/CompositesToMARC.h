#pragma once

#include <zorby/copies/HoldingsDataRecord.h>
#include <zorby/holdings/HoldingsType.h>
#include <zorby/holdings/InfoAboutHoldingsField.h>

#include <string>
#include <string_view>

namespace zorby {

// The subfields that some systems compose of several elements of a copy: $x of Follett's systems,
// such as "FSC@aFIC@bJUV", and $1 of Alexandria, such as "Funds:Gift|Vendor:Acme|".
class CompositesToMARC {
public:
    explicit CompositesToMARC(EHOLDINGSTYPE type);

    // Take a value that belongs into such a subfield. False for one that doesn't.
    bool Take(const CInfoAboutHoldingsField& info, std::string_view text);
    bool Take(const HoldingItemHold& hold);

    // Empty where there is nothing to write.
    const std::string& SubfieldX() const { return x_; }
    const std::string& Subfield1() const { return one_; }

private:
    void AddToX(const CInfoAboutHoldingsField& info, std::string_view text);
    void AddTo1(const CInfoAboutHoldingsField& info, std::string_view text);

    bool composesX_;
    bool composes1_;
    std::string x_;
    std::string one_;
};

}  // namespace zorby

#pragma once

#include <zorby/selection/FandSSelector.h>

#include <string_view>

namespace zorby {

struct TypedSelectionRules {
    bool allowWholeField = false;
    bool allow001And003 = false;
    bool allowBelow010 = false;
    bool allowSubfields = false;
    bool allow245h = false;
    bool checkFormat = false;
};

// Checks a typed selection as CFandSSelector::SpecificFieldEditIsOK does. The text is trimmed.
CFandSSelectorErrorCode CheckTypedSelection(std::string_view text, const TypedSelectionRules& rules,
                                            int& first, int& last);

}  // namespace zorby

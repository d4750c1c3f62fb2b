#pragma once

#include <quillory/faults/Hints.h>

namespace quillory {

// What a person does at the desk about a fault or a finding: a key, a menu.
class DeskHints : public HintPort {
public:
    std::string Hint(std::string_view id, const Place& place) const override;
};

}  // namespace quillory

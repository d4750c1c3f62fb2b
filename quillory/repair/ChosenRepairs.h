#pragma once

#include <quillory/repair/Repair.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// The bytes of a coded field, or of the Leader, with those repairs of it alone that a person has
// chosen: `chosen` has a value for each repair. `field` is the place of the field as a whole. A
// repair of bytes that the field does not have, since its new length was not chosen, is left out.
std::string WithChosen(const std::vector<Repair>& repairs, const std::vector<bool>& chosen,
                       const Place& field, std::string_view given);

}  // namespace quillory

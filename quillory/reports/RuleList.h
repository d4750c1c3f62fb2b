#pragma once

#include <string>

namespace quillory {

// All rules of checking: as text for a person, and as a line of JSON each.
std::string RulesText();
std::string RulesJsonl();

}  // namespace quillory

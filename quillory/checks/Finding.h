#pragma once

#include <zorby/checking/ErrorCode.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillory {

// One finding on a record, and where it is.
struct Finding {
    zorby::E_ERROR_CODE code = {};
    zorby::E_ERROR_CODE_SUB_TYPE severity = zorby::EST_Error;
    std::array<char, 3> tag{};     // zeros for a finding about the whole record
    std::uint32_t occurrence = 0;  // of the tag, from 1; 0 where there is no such field
    char subfield = '\0';          // 0 for a finding about a field or a record

    // Empty for the whole record.
    std::string_view Tag() const { return {tag.data(), tag[0] == '\0' ? 0 : tag.size()}; }
    bool IsError() const { return severity == zorby::EST_Error; }
};

// The words of the library in UTF-8, without prefix and line end. They presume that the policy
// which made the finding is in force.
std::string ShortText(const Finding& finding);
std::string LongText(const Finding& finding);

// Where it is: "245 $a", "650 occurrence 2 $x"; empty for the whole record.
std::string PlaceText(const Finding& finding);

// Severity, short words and place in a line: "E: ... [245 $a]".
std::string LineText(const Finding& finding);

}  // namespace quillory

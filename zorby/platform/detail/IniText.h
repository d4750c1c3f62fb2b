#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

enum class IniLineKind : std::int32_t { kSection, kValue, kOther };

// One line of an INI text. All views point into that text.
struct IniLine {
    IniLineKind kind = IniLineKind::kOther;
    std::string_view name;     // of the section or the key
    std::string_view value;    // of a key
    std::string_view content;  // the line without its end
    std::string_view lineEnd;  // LF, CR LF or, at the end of the text, as much of it as there is
};

std::vector<IniLine> IniLines(std::string_view text);

// Returns the value of a key that counts, or nothing if the section or the key is absent.
std::optional<std::string_view> IniValue(std::string_view text, std::string_view section,
                                         std::string_view key);

// Returns whether these read back the same after they were written as lines. The value may be null.
bool IniCanHold(std::string_view section, std::string_view key, const char* value);

// Returns the text with one key changed, added or (if the value is null) removed. IniCanHold must
// be true.
std::string IniTextWith(std::string_view text, std::string_view section, std::string_view key,
                        const char* value);

}  // namespace zorby

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

enum class IniLineKind : std::int32_t { kSection, kValue, kOther };

// One line of an INI text. All views are parts of that text.
struct IniLine {
    IniLineKind kind = IniLineKind::kOther;
    std::string_view name;     // of the section or the key
    std::string_view value;    // of a key
    std::string_view content;  // the line without its end
    std::string_view lineEnd;  // LF, CR LF, or what there is of it at the end of the text
};

std::vector<IniLine> IniLines(std::string_view text);

// The value of a key that counts; nothing if the section or the key is absent.
std::optional<std::string_view> IniValue(std::string_view text, std::string_view section,
                                         std::string_view key);

// Whether these come back the same when they are written as lines and read. The value may be null.
bool IniCanHold(std::string_view section, std::string_view key, const char* value);

// The text with one key changed, added, or removed (null value). IniCanHold must be true.
std::string IniTextWith(std::string_view text, std::string_view section, std::string_view key,
                        const char* value);

}  // namespace zorby

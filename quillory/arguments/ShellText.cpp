#include <quillory/arguments/ShellText.h>

#include <algorithm>

namespace quillory {

std::string ShellQuoted(std::string_view text, std::string_view escaped) {
    std::string quoted = "'";
    for (const char c : text) {
        if (c == '\'') {
            quoted += escaped;
        } else {
            quoted += c;
        }
    }
    return quoted + "'";
}

std::string ShellQuoted(std::string_view text) {
    return ShellQuoted(text, "'\\''");
}

std::string Backslashed(std::string_view text, std::string_view special) {
    std::string result;
    for (const char c : text) {
        if (special.find(c) != special.npos) result += '\\';
        result += c;
    }
    return result;
}

std::string ShellName(std::string name) {
    std::ranges::replace(name, '-', '_');
    return name;
}

std::string FilledScript(std::string script,
                         const std::vector<std::pair<std::string, std::string>>& marks) {
    for (const auto& [mark, text] : marks) {
        for (std::size_t at = script.find(mark); at != script.npos;
             at = script.find(mark, at + text.size())) {
            script.replace(at, mark.size(), text);
        }
    }
    return script;
}

}  // namespace quillory

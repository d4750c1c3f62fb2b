#include <quillory/exchange/Nesting.h>

#include <algorithm>

namespace quillory {
namespace {

// Counts brackets, and the dots of a key, as they come outside of strings.
class Depth {
public:
    // False if it is too much.
    bool Take(char c) {
        if (c == '{' || c == '[') ++brackets_;
        if ((c == '}' || c == ']') && brackets_ > 0) --brackets_;
        dots_ = c == '.' ? dots_ + 1 : IsInKey(c) ? dots_ : 0;
        return brackets_ + dots_ <= kDeepestNesting;
    }

private:
    // Quotes and blanks may stand in a key, between its dots.
    static bool IsInKey(char c) {
        return c != '\n' && c != '=' && c != ',' && c != '{' && c != '}' && c != '[' && c != ']';
    }

    std::size_t brackets_ = 0;
    std::size_t dots_ = 0;
};

// Past the string that begins at a quote: its last quotes are as many as its first ones, one or
// three. A string of one line ends with it.
std::size_t EndOfString(std::string_view text, std::size_t at) {
    const char quote = text[at];
    const std::string_view three = quote == '"' ? "\"\"\"" : "'''";
    const bool isLong = text.substr(at).starts_with(three);
    const std::string_view end = isLong ? three : three.substr(0, 1);
    for (at += end.size(); at < text.size(); ++at) {
        if (text.substr(at).starts_with(end)) return at + end.size();
        if (text[at] == '\n' && !isLong) return at;
        if (text[at] == '\\' && quote == '"') ++at;
    }
    return text.size();
}

}  // namespace

std::optional<std::size_t> TooDeepInJson(std::string_view json) {
    Depth depth;
    for (std::size_t at = 0; at < json.size();) {
        if (json[at] == '"') {
            at = EndOfString(json, at);
            continue;
        }
        // A number has a dot, and no key has any.
        if (json[at] != '.' && !depth.Take(json[at])) return at;
        ++at;
    }
    return std::nullopt;
}

std::optional<std::size_t> TooDeepInToml(std::string_view toml) {
    Depth depth;
    for (std::size_t at = 0; at < toml.size();) {
        const char c = toml[at];
        if (c == '"' || c == '\'') {
            at = EndOfString(toml, at);
        } else if (c == '#') {
            at = std::min(toml.find('\n', at), toml.size());
        } else {
            if (!depth.Take(c)) return at;
            ++at;
        }
    }
    return std::nullopt;
}

}  // namespace quillory

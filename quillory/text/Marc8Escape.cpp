#include <quillory/text/Marc8Escape.h>

namespace quillory {

Marc8Escape ReadMarc8Escape(std::string_view text) {
    const auto byte = [text](std::size_t at) { return at < text.size() ? text[at] : '\0'; };
    const auto isOneOf = [](char c, std::string_view set) {
        return c != '\0' && set.find(c) != set.npos;
    };
    Marc8Escape escape;
    std::size_t at = 1;
    if (isOneOf(byte(at), "sgbp")) {
        escape.size = 2;
        if (byte(at) != 's') escape.bytes = text.substr(0, 2);
        return escape;
    }
    if (byte(at) == '$') {
        escape.width = 3;
        ++at;
    }
    if (isOneOf(byte(at), "(,)-")) {
        escape.isG1 = isOneOf(byte(at), ")-");
        ++at;
    } else if (escape.width == 1) {
        return {};
    }
    if (byte(at) == '!') ++at;
    if (byte(at) <= ' ' || byte(at) > '~') return {};
    const bool isBasic = text.substr(0, at + 1) == "\x1B(B" || text.substr(0, at + 1) == "\x1B,B";
    const bool isAnsel = text.substr(0, at + 1) == "\x1B)!E" || text.substr(0, at + 1) == "\x1B-!E";
    escape.size = at + 1;
    if (!isBasic && !isAnsel) escape.bytes = text.substr(0, escape.size);
    return escape;
}

}  // namespace quillory

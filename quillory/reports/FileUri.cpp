#include <quillory/reports/FileUri.h>

#include <cstdio>

namespace quillory {
namespace {

// In a path, without meaning of its own.
bool IsPlain(char c) {
    const bool isAlphanumeric =
        (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    return isAlphanumeric || std::string_view("-._~/").find(c) != std::string_view::npos;
}

}  // namespace

std::string FileUri(std::string_view path) {
    std::string uri = path.starts_with('/') ? "file://" : "";
    for (const char c : path) {
        if (IsPlain(c)) {
            uri += c;
        } else {
            char text[4];
            std::snprintf(text, sizeof text, "%%%02X", static_cast<unsigned char>(c));
            uri += text;
        }
    }
    return uri;
}

}  // namespace quillory

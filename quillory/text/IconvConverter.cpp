#include <quillory/text/CharacterReference.h>
#include <quillory/text/IconvConverter.h>
#include <quillory/text/Utf8.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <stdexcept>

namespace quillory {
namespace {

constexpr char kUtf8[] = "UTF-8";

bool IsOpen(iconv_t handle) {
    constexpr std::intptr_t kNone = -1;
    return reinterpret_cast<std::intptr_t>(handle) != kNone;
}

void Close(iconv_t handle) {
    if (IsOpen(handle)) iconv_close(handle);
}

// Appends what can be converted from the front of a text. Result: bytes of the text taken.
std::size_t Convert(iconv_t handle, std::string_view text, std::string& out) {
    constexpr std::size_t kFailed = static_cast<std::size_t>(-1);
    std::array<char, 256> block{};
    char* in = const_cast<char*>(text.data());  // iconv only reads there
    std::size_t inLeft = text.size();
    iconv(handle, nullptr, nullptr, nullptr, nullptr);
    for (bool isFull = true; isFull;) {
        char* end = block.data();
        std::size_t room = block.size();
        isFull = iconv(handle, &in, &inLeft, &end, &room) == kFailed && errno == E2BIG;
        out.append(block.data(), end);
    }
    char* end = block.data();
    std::size_t room = block.size();
    iconv(handle, nullptr, nullptr, &end, &room);  // back to the set at the beginning
    out.append(block.data(), end);
    return text.size() - inLeft;
}

}  // namespace

bool IconvConverter::HasSet(const std::string& name) {
    constexpr std::string_view kAscii = "Az09 $&#;\x1F";
    // What follows a slash would be an option of iconv.
    if (name.empty() || name.find('/') != name.npos) return false;
    const iconv_t to = iconv_open(kUtf8, name.c_str());
    const iconv_t from = iconv_open(name.c_str(), kUtf8);
    std::string there;
    std::string back;
    const bool has = IsOpen(to) && IsOpen(from) && Convert(to, kAscii, there) == kAscii.size() &&
                     there == kAscii && Convert(from, kAscii, back) == kAscii.size() &&
                     back == kAscii;
    Close(to);
    Close(from);
    return has;
}

IconvConverter::IconvConverter(const std::string& name)
    : toUtf8_(iconv_open(kUtf8, name.c_str())), fromUtf8_(iconv_open(name.c_str(), kUtf8)) {
    if (!IsOpen(toUtf8_) || !IsOpen(fromUtf8_)) {
        Close(toUtf8_);
        Close(fromUtf8_);
        throw std::runtime_error("the C library has no converter for " + name);
    }
}

IconvConverter::~IconvConverter() {
    Close(toUtf8_);
    Close(fromUtf8_);
}

void IconvConverter::AppendUtf8(std::string_view text, std::string& utf8, Losses& losses) {
    for (;;) {
        text.remove_prefix(Convert(toUtf8_, text, utf8));
        if (text.empty()) return;
        losses.Add(kLossReplaced, static_cast<unsigned char>(text.front()));
        quillory::AppendUtf8(kReplacementCharacter, utf8);
        text.remove_prefix(1);
    }
}

void IconvConverter::AppendFromUtf8(std::string_view utf8, std::string& text, Losses& losses) {
    while (!utf8.empty()) {
        const Utf8Char c = DecodeUtf8(utf8);
        const std::size_t start = text.size();
        if (!c.valid || Convert(fromUtf8_, utf8.substr(0, c.size), text) != c.size) {
            const auto byte = static_cast<unsigned char>(utf8.front());
            text.resize(start);
            losses.Add(c.valid ? kLossReference : kLossReplaced, c.valid ? c.codePoint : byte);
            AppendReference(c.valid ? c.codePoint : kReplacementCharacter, text);
        }
        utf8.remove_prefix(c.size);
    }
}

}  // namespace quillory

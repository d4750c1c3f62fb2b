#include <quillory/queries/Token.h>
#include <quillory/text/Ascii.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr std::string_view kMarks = "\"'";
constexpr std::string_view kEndsOfWords = " \t\r\n(),=<>";

std::size_t SizeOfSign(std::string_view text) {
    for (const std::string_view sign : {"!=", "<=", ">="}) {
        if (text.starts_with(sign)) return sign.size();
    }
    return std::string_view("(),=<>").find(text.front()) == text.npos ? 0 : 1;
}

// Up to the end of the text's closing mark; npos if it has none.
std::size_t SizeOfText(std::string_view text) {
    const char mark = text.front();
    std::size_t at = 1;
    while ((at = text.find(mark, at)) != text.npos) {
        if (text.substr(at + 1, 1) != std::string_view(&mark, 1)) return at + 1;
        at += 2;
    }
    return text.npos;
}

std::size_t SizeOfWord(std::string_view text) {
    const std::size_t end = std::min(text.find_first_of(kEndsOfWords), text.find("!="));
    return std::min(end, text.size());
}

}  // namespace

bool Token::IsWord(std::string_view word) const {
    return kind == kTokenWord && std::ranges::equal(bytes, word, {}, LowerAscii);
}

std::string Token::Text() const {
    if (kind != kTokenText) return std::string(bytes);
    const char mark = bytes.front();
    std::string text;
    for (std::size_t at = 1; at + 1 < bytes.size(); ++at) {
        text += bytes[at];
        if (bytes[at] == mark) ++at;
    }
    return text;
}

Token TokenAt(std::string_view expression, std::size_t offset) {
    const std::size_t start =
        std::min(expression.find_first_not_of(kWhiteSpace, offset), expression.size());
    const std::string_view rest = expression.substr(start);
    if (rest.empty()) return {kTokenEnd, start, rest};
    if (const std::size_t size = SizeOfSign(rest)) return {kTokenSign, start, rest.substr(0, size)};
    if (kMarks.find(rest.front()) == kMarks.npos) {
        return {kTokenWord, start, rest.substr(0, SizeOfWord(rest))};
    }
    const std::size_t size = SizeOfText(rest);
    return {size == rest.npos ? kTokenUnclosed : kTokenText, start, rest.substr(0, size)};
}

}  // namespace quillory

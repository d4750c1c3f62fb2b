#include <quillory/coded/CheckDigits.h>
#include <quillory/sets/StandardNumbers.h>
#include <quillory/text/Ascii.h>

#include <algorithm>

namespace quillory {
namespace {

// Letters, digits and all beyond ASCII.
std::string Signs(std::string_view text) {
    std::string signs;
    for (const char c : text) {
        const char lower = LowerAscii(c);
        if (IsDigit(c) || ('a' <= lower && lower <= 'z') || c < 0) signs += lower;
    }
    return signs;
}

// The digits at the front of a text, an x and hyphens and blanks between them; none of the words
// after them.
std::string NumberAtFront(std::string_view text) {
    std::string number;
    for (const char c : text.substr(std::min(text.find_first_not_of(' '), text.size()))) {
        if (IsDigit(c) || c == 'x' || c == 'X') {
            number += LowerAscii(c);
        } else if (c != '-' && c != ' ') {
            break;
        }
    }
    return number;
}

constexpr std::size_t kIsbn10 = 10;
constexpr std::size_t kIsbn13 = 13;

std::string_view WithoutZeros(std::string_view digits) {
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
    return digits;
}

}  // namespace

// What stands right after a number without anything between may be a digit of another: then only
// the digits that are a number count.
std::string NormalIsbn(std::string_view text) {
    const std::string number = NumberAtFront(text);
    for (const std::size_t size : {kIsbn13, kIsbn10}) {
        std::string sound = SoundIsbn13(std::string_view(number).substr(0, size));
        if (!sound.empty()) return sound;
    }
    return number.size() >= kIsbn10 ? number : Signs(text);
}

std::string NormalIssn(std::string_view text) {
    constexpr std::size_t kIssn = 8;
    const std::string number = NumberAtFront(text);
    return number.size() == kIssn ? number : Signs(text);
}

std::string NormalSystemNumber(std::string_view text) {
    constexpr std::string_view kOclc = "ocolc";
    const auto open = text.find('(');
    const auto close = text.find(')');
    if (open == text.npos || close == text.npos || close < open) return Signs(text);
    const std::string system = Signs(text.substr(open, close - open));
    std::string number = Signs(text.substr(close));
    if (system == kOclc) {
        for (const std::string_view prefix : {"ocm", "ocn", "on"}) {
            if (number.starts_with(prefix)) number.erase(0, prefix.size());
        }
        if (AreDigits(number)) number = WithoutZeros(number);
    }
    return number.empty() ? number : "(" + system + ")" + number;
}

std::string NormalLccn(std::string_view text) {
    constexpr std::size_t kSerial = 6;
    text = text.substr(0, text.find('/'));
    const auto hyphen = text.find('-');
    std::string number = Signs(text.substr(0, hyphen));
    if (hyphen == text.npos) return number;
    const std::string serial = Signs(text.substr(hyphen));
    return number + std::string(kSerial - std::min(kSerial, serial.size()), '0') + serial;
}

}  // namespace quillory

#include <quillory/checks/ByteSet.h>
#include <quillory/coded/CheckDigits.h>
#include <quillory/rules/StandardNumbers.h>
#include <quillory/text/Ascii.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr std::size_t kIsbn10 = 10;
constexpr std::size_t kEan = 13;
constexpr std::size_t kUpc = 12;
constexpr std::size_t kIssn = 8;

std::string WithoutSigns(std::string_view text) {
    std::string number(text);
    std::erase_if(number, [](char c) { return c == '-' || c == ' '; });
    return number;
}

std::string WrongCheckDigit(char right) {
    return std::string("the check digit would be ") + right;
}

constexpr std::string_view kOtherSigns = "it has other signs";

char Upper(char c) {
    return c == 'x' ? 'X' : c;
}

// An X counts as a digit where the check digit may be one.
std::string WrongSize(std::string_view number, bool mayEndInX, std::string_view sizes) {
    std::string_view digits = number;
    if (mayEndInX && !digits.empty() && Upper(digits.back()) == 'X') digits.remove_suffix(1);
    if (!AreDigits(digits)) return std::string(kOtherSigns);
    return "it has " + std::to_string(number.size()) + (number.size() == 1 ? " digit" : " digits") +
           "; there are " + std::string(sizes);
}

std::string FaultOf11(std::string_view number) {
    const std::string_view digits = number.substr(0, number.size() - 1);
    const char last = Upper(number.back());
    if (!AreDigits(digits) || (!IsDigit(last) && last != 'X')) return std::string(kOtherSigns);
    const char right = CheckDigit11(digits);
    return last == right ? std::string() : WrongCheckDigit(right);
}

std::string FaultOf10(std::string_view number) {
    if (!AreDigits(number)) return std::string(kOtherSigns);
    const char right = CheckDigit10(number.substr(0, number.size() - 1));
    return number.back() == right ? std::string() : WrongCheckDigit(right);
}

constexpr ByteSet kSignsOfIsbn = SetOf("0123456789Xx-");
constexpr ByteSet kSignsOfGroups = SetOf("0123456789Xx- ");

// The signs at the front of a text.
std::string_view FrontOf(std::string_view text, const ByteSet& signs) {
    const char* end = text.data();
    const char* const last = end + text.size();
    while (end != last && signs.Has(*end)) ++end;
    return {text.data(), end};
}

bool IsSizeOfIsbn(std::size_t digits) {
    return digits == kIsbn10 || digits == kEan;
}

// Whether a number has as many digits as an ISBN, with or without signs between its groups.
bool HasSizeOfIsbn(std::string_view number) {
    if (IsSizeOfIsbn(number.size())) return true;
    const auto signs = std::ranges::count_if(number, [](char c) { return c == '-' || c == ' '; });
    return IsSizeOfIsbn(number.size() - static_cast<std::size_t>(signs));
}

// One of the dashes of Unicode, U+2010 to U+2015.
bool StartsWithDash(std::string_view text) {
    return text.size() > 2 && text.starts_with("\xE2\x80") && '\x90' <= text[2] &&
           text[2] <= '\x95';
}

}  // namespace

std::string_view GroupsAtFront(std::string_view text) {
    return FrontOf(text, kSignsOfGroups);
}

std::string_view IsbnAtFront(std::string_view text) {
    const std::string_view number = FrontOf(text, kSignsOfIsbn);
    const std::string_view rest = text.substr(number.size());
    if (rest.empty() || HasSizeOfIsbn(number)) return number;
    if (StartsWithDash(rest)) return text.substr(0, text.find(' '));
    const std::string_view groups = WithoutBlanks(GroupsAtFront(text));
    return HasSizeOfIsbn(groups) ? groups : number;
}

std::string IsbnKey(std::string_view number) {
    constexpr std::size_t kLongest = 17;  // 13 digits in five groups
    if (number.size() > kLongest) return std::string(number);
    std::string sound = SoundIsbn13(WithoutSigns(number));
    if (sound.empty()) sound = number;
    return sound;
}

std::string FaultOfIsbn(std::string_view text) {
    if (text.empty()) return "the text does not begin with a number";
    const std::string number = WithoutSigns(text);
    if (number.size() == kIsbn10) return FaultOf11(number);
    if (number.size() != kEan) return WrongSize(number, true, "10 or 13 in an ISBN");
    if (!number.starts_with("978") && !number.starts_with("979")) {
        return "an ISBN of 13 digits begins with 978 or 979";
    }
    return FaultOf10(number);
}

std::string FaultOfIssn(std::string_view text) {
    constexpr std::size_t kHyphen = 4;
    const std::string number = WithoutSigns(text);
    if (number.size() != kIssn) return WrongSize(number, true, "8 in an ISSN");
    std::string fault = FaultOf11(number);
    if (!fault.empty()) return fault;
    const bool isWritten = text.size() == kIssn + 1 && text[kHyphen] == '-';
    if (isWritten) return {};
    const std::string digits = number.substr(kHyphen, kIssn - kHyphen - 1);
    return "it would be " + number.substr(0, kHyphen) + '-' + digits + Upper(number.back());
}

std::string FaultOfEan(std::string_view text) {
    const std::string number = WithoutSigns(text);
    if (number.size() != kEan) return WrongSize(number, false, "13 in an EAN");
    return FaultOf10(number);
}

std::string FaultOfUpc(std::string_view text) {
    const std::string number = WithoutSigns(text);
    if (number.size() != kUpc) return WrongSize(number, false, "12 in a UPC");
    return FaultOf10(number);
}

std::string FaultOfIsmn(std::string_view text) {
    std::string number = WithoutSigns(text);
    if (number.starts_with('M') || number.starts_with('m')) number.replace(0, 1, "9790");
    if (number.size() != kEan || !number.starts_with("9790")) {
        return "an ISMN is 13 digits from 9790 on, or M and nine digits";
    }
    return FaultOf10(number);
}

}  // namespace quillory

#include <quillory/coded/CheckDigits.h>
#include <quillory/text/Ascii.h>

namespace quillory {
namespace {

constexpr std::size_t kIsbn10 = 10;
constexpr std::size_t kIsbn13 = 13;

// Whether a number of so many digits ends with the check digit of those before it.
bool IsSound(std::string_view number, std::size_t size, char (*checkDigit)(std::string_view)) {
    if (number.size() != size) return false;
    const std::string_view digits = number.substr(0, size - 1);
    return AreDigits(digits) && LowerAscii(checkDigit(digits)) == LowerAscii(number.back());
}

bool IsIsbn10(std::string_view number) {
    return IsSound(number, kIsbn10, CheckDigit11);
}

bool IsIsbn13(std::string_view number) {
    return IsSound(number, kIsbn13, CheckDigit10);
}

}  // namespace

// Weights fall from the length to 2; the check digit makes the sum a multiple of 11.
char CheckDigit11(std::string_view digits) {
    constexpr int kTen = 10;
    int sum = 0;
    int weight = static_cast<int>(digits.size()) + 1;
    for (const char digit : digits) sum += (digit - '0') * weight--;
    const int value = (11 - sum % 11) % 11;
    return value == kTen ? 'X' : static_cast<char>('0' + value);
}

// Weights are 3 and 1 in turn, 3 beside the check digit, which makes the sum a multiple of 10.
char CheckDigit10(std::string_view digits) {
    int sum = 0;
    int weight = 3;
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        sum += (*digit - '0') * weight;
        weight = 4 - weight;
    }
    return static_cast<char>('0' + (10 - sum % 10) % 10);
}

std::string SoundIsbn13(std::string_view number) {
    if (IsIsbn13(number)) return std::string(number);
    if (!IsIsbn10(number)) return {};
    std::string digits = "978" + std::string(number.substr(0, kIsbn10 - 1));
    digits += CheckDigit10(digits);
    return digits;
}

}  // namespace quillory

#include <quillory/coded/CheckDigits.h>

namespace quillory {

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

std::string Isbn13Of(std::string_view isbn10) {
    constexpr std::size_t kDigits = 9;
    std::string number = "978" + std::string(isbn10.substr(0, kDigits));
    number += CheckDigit10(number);
    return number;
}

}  // namespace quillory

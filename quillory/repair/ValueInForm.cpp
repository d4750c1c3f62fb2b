#include <quillory/coded/CodeLists.h>
#include <quillory/repair/ValueInForm.h>
#include <quillory/text/Ascii.h>

#include <algorithm>

namespace quillory {
namespace {

using namespace zorby;

// What stands for a digit that is not known.
constexpr std::string_view kUnknownDigits = "uUxX-?|";

// With `unknown` for each digit that is marked as unknown. What has no digit, and was not coded in
// part, is not said to be unknown.
std::optional<std::string> WithUnknown(std::string_view value, char unknown) {
    const bool hasDigit = std::ranges::any_of(value, IsDigit);
    if (!hasDigit && value.find(kFill) != value.npos) return std::nullopt;
    std::string inForm(value);
    for (char& c : inForm) {
        if (kUnknownDigits.find(c) != kUnknownDigits.npos) {
            c = unknown;
        } else if (!IsDigit(c)) {
            return std::nullopt;
        }
    }
    return inForm;
}

// A number that stands at the right of its element.
std::optional<std::string> WithZeros(std::string_view value) {
    const std::size_t first = std::min(value.find_first_not_of(' '), value.size());
    const std::string_view digits = value.substr(first);
    if (digits.empty() || !std::ranges::all_of(digits, IsDigit)) return std::nullopt;
    return std::string(first, '0') + std::string(digits);
}

}  // namespace

std::optional<std::string> ValueInForm(CFPart part, std::string_view value) {
    switch (part) {
        case CFP008Date1:
        case CFP008Date2:
            return WithUnknown(value, 'u');
        case CFP007MicroformReductionRatio:
        case CFP007MotionPictureInspectionDate:
            if (auto number = WithZeros(value)) return number;
            return WithUnknown(value, '-');
        case CFP006VisualRunningTime:
        case CFP007ElectronicBitDepth:
            return WithZeros(value);
        default:
            return std::nullopt;
    }
}

}  // namespace quillory

#include <quillory/coded/CodeLists.h>
#include <quillory/coded/FreeValues.h>
#include <quillory/text/Ascii.h>
#include <zorby/elements/OffsetTables.h>

#include <algorithm>

namespace quillory {
namespace {

using namespace zorby;

constexpr std::string_view kDigits = "0123456789";
const FreeValue kMisfit{"", false};

bool HasOnly(std::string_view value, std::string_view characters) {
    return value.find_first_not_of(characters) == value.npos;
}

// Reads up to five digits.
int Number(std::string_view digits) {
    int number = 0;
    for (const char digit : digits) number = 10 * number + (digit - '0');
    return number;
}

std::string Counted(int number, const char* unit) {
    return std::to_string(number) + " " + unit + (number == 1 ? "" : "s");
}

FreeValue ReadLength(std::string_view value) {
    if (!HasOnly(value, kDigits)) return kMisfit;
    return {Counted(Number(value), "byte")};
}

bool IsDay(int year, int month, int day) {
    constexpr int kDays[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12 || day < 1 || day > kDays[month - 1]) return false;
    // Years of two digits begin with 1968, and 2000 was a leap year.
    return !(month == 2 && day == 29) || year % 4 == 0;
}

int YearEntered(std::string_view day) {
    constexpr int kFirstYear = 68;  // no record is older than the format
    const int yy = Number(day.substr(0, 2));
    return (yy < kFirstYear ? 2000 : 1900) + yy;
}

FreeValue ReadDayEntered(std::string_view value) {
    if (!IsDayEntered(value)) return kMisfit;
    std::string text = std::to_string(YearEntered(value));
    text.append("-").append(value.substr(2, 2)).append("-").append(value.substr(4));
    return {text};
}

std::optional<FreeValue> ReadDate(std::string_view value) {
    if (IsAll(value, kFill)) return std::nullopt;
    if (IsAll(value, ' ')) return FreeValue{"Not applicable"};
    if (IsAll(value, 'u')) return FreeValue{"Unknown"};
    if (value == "9999") return FreeValue{"Continuing"};
    if (HasOnly(value, kDigits)) return FreeValue{};
    if (HasOnly(value, "0123456789u")) return FreeValue{"Partly unknown"};
    // Month and day of a detailed date may be incomplete.
    return HasOnly(value, "0123456789u ") ? FreeValue{} : kMisfit;
}

// Numbers from 001; 000 and other texts are codes.
std::optional<FreeValue> ReadCount(std::string_view value, const char* unit) {
    if (!HasOnly(value, kDigits) || Number(value) == 0) return std::nullopt;
    return FreeValue{Counted(Number(value), unit)};
}

std::optional<FreeValue> ReadReduction(std::string_view value) {
    if (IsAll(value, kFill)) return std::nullopt;
    if (IsAll(value, '-')) return FreeValue{"Unknown"};
    if (HasOnly(value, kDigits)) return FreeValue{std::to_string(Number(value)) + ":1"};
    return HasOnly(value, "0123456789-") ? FreeValue{"Partly unknown"} : kMisfit;
}

// ccyymm
std::optional<FreeValue> ReadInspection(std::string_view value) {
    if (IsAll(value, kFill)) return std::nullopt;
    if (IsAll(value, '-')) return FreeValue{"Unknown"};
    if (!HasOnly(value, "0123456789-")) return kMisfit;
    if (!HasOnly(value, kDigits)) return FreeValue{"Partly unknown"};
    const int month = Number(value.substr(4));
    if (month < 1 || month > 12) return kMisfit;
    return FreeValue{std::string(value.substr(0, 4)) + "-" + std::string(value.substr(4))};
}

}  // namespace

bool IsDayEntered(std::string_view value) {
    constexpr std::size_t kSize = 6;
    if (value.size() != kSize || !AreDigits(value)) return false;
    return IsDay(YearEntered(value), Number(value.substr(2, 2)), Number(value.substr(4)));
}

std::optional<FreeValue> ReadFreeValue(CFPart part, std::string_view value) {
    if (value.size() != static_cast<std::size_t>(WidthOfPart(part))) return std::nullopt;
    switch (part) {
        case CFPLdrRecordLength:
        case CFPLdrBaseAddress:
            return ReadLength(value);
        case CFP008DateEntered:
            return ReadDayEntered(value);
        case CFP008Date1:
        case CFP008Date2:
            return ReadDate(value);
        case CFP006VisualRunningTime:
            return ReadCount(value, "minute");
        case CFP007ElectronicBitDepth:
            return ReadCount(value, "bit");
        case CFP007MicroformReductionRatio:
            return ReadReduction(value);
        case CFP007MotionPictureInspectionDate:
            return ReadInspection(value);
        default:
            return std::nullopt;
    }
}

std::string_view FormOfFreeValue(CFPart part) {
    switch (part) {
        case CFPLdrRecordLength:
        case CFPLdrBaseAddress:
            return "five digits";
        case CFP008DateEntered:
            return "a day of the form yymmdd";
        case CFP008Date1:
        case CFP008Date2:
            return "four digits, with u for one that is not known";
        case CFP006VisualRunningTime:
            return "the minutes in three digits, or 000 for more, nnn or ---";
        case CFP007ElectronicBitDepth:
            return "the bits in three digits, or mmm, nnn or ---";
        case CFP007MicroformReductionRatio:
            return "three digits, with - for one that is not known";
        case CFP007MotionPictureInspectionDate:
            return "a month of the form ccyymm, with - for what is not known";
        default:
            return {};
    }
}

}  // namespace quillory

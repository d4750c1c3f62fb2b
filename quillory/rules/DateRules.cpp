#include <quillory/rules/RuleFamilies.h>
#include <quillory/rules/Words.h>
#include <quillory/text/Ascii.h>

#include <algorithm>
#include <array>

namespace quillory {
namespace {

// What a date of 008 may be under a type of date.
enum class DateKind : std::uint8_t { Blank, Year, YearNotOpen, Unknown, Open, MonthAndDay };

struct TypeOfDate {
    char code;
    DateKind first;
    DateKind second;
};

// As the MARC 21 Format for Bibliographic Data has them in 008/06.
constexpr std::array kTypes = std::to_array<TypeOfDate>({
    {'b', DateKind::Blank, DateKind::Blank},
    {'c', DateKind::Year, DateKind::Open},
    {'d', DateKind::Year, DateKind::YearNotOpen},
    {'e', DateKind::Year, DateKind::MonthAndDay},
    {'i', DateKind::Year, DateKind::Year},
    {'k', DateKind::Year, DateKind::Year},
    {'m', DateKind::Year, DateKind::Year},
    {'n', DateKind::Unknown, DateKind::Unknown},
    {'p', DateKind::Year, DateKind::YearNotOpen},
    {'q', DateKind::Year, DateKind::YearNotOpen},
    {'r', DateKind::Year, DateKind::YearNotOpen},
    {'s', DateKind::Year, DateKind::Blank},
    {'t', DateKind::Year, DateKind::YearNotOpen},
    {'u', DateKind::Year, DateKind::Unknown},
});

bool IsAll(std::string_view text, char c) {
    return text.find_first_not_of(c) == text.npos;
}

// Digits, with "u" for what is not known.
bool IsYearOfDate(std::string_view date) {
    return std::ranges::all_of(date, [](char c) { return IsDigit(c) || c == 'u'; });
}

// From 01 on.
bool IsNumberTo(std::string_view last, std::string_view digits) {
    return AreDigits(digits) && "01" <= digits && digits <= last;
}

bool IsMonthAndDay(std::string_view date) {
    const std::string_view day = date.substr(2);
    const bool hasDay = IsAll(day, ' ') || IsNumberTo("31", day);
    return IsAll(date, ' ') || (IsNumberTo("12", date.substr(0, 2)) && hasDay);
}

bool Is(DateKind kind, std::string_view date) {
    switch (kind) {
        case DateKind::Blank:
            return IsAll(date, ' ');
        case DateKind::Year:
            return IsYearOfDate(date);
        case DateKind::YearNotOpen:
            return IsYearOfDate(date) && date != "9999";
        case DateKind::Unknown:
            return IsAll(date, 'u');
        case DateKind::Open:
            return date == "9999";
        default:
            return IsMonthAndDay(date);
    }
}

std::string_view TextOf(DateKind kind) {
    switch (kind) {
        case DateKind::Blank:
            return "blank";
        case DateKind::Unknown:
            return "uuuu";
        case DateKind::Open:
            return "9999";
        case DateKind::MonthAndDay:
            return "a month and a day";
        default:
            return "a year";
    }
}

// Other values are unknown codes, and found as such.
bool IsWellFormed(std::string_view date) {
    return IsAll(date, ' ') || IsYearOfDate(date) || IsMonthAndDay(date);
}

void CheckDate(const CheckedField& field, const TypeOfDate& type, int which, RemarkSink& remarks) {
    constexpr int kFirst = 7;
    constexpr int kWidth = 4;
    const int at = kFirst + (which - 1) * kWidth;
    const std::string_view date = field.content.substr(static_cast<std::size_t>(at), kWidth);
    const DateKind kind = which == 1 ? type.first : type.second;
    if (Is(kind, date) || !IsWellFormed(date)) return;
    remarks.Add(RuleId::DateAgainstType, field.GetPlace().Positions(at, at + kWidth - 1), [&] {
        return RemarkWords{
            "date " + std::to_string(which) + " is " + Shown(date),
            std::string("type ") + type.code + " it is " + std::string(TextOf(kind))};
    });
}

constexpr std::size_t kYearSize = 4;

// Calls `take(year)` for the years in a text, without the brackets in them: "198[5]".
template <class Take>
void ForEachYear(std::string_view text, Take& take) {
    std::array<char, kYearSize> digits{};
    std::size_t count = 0;
    const auto end = [&] {
        if (count == kYearSize) take(std::string_view(digits.data(), kYearSize));
        count = 0;
    };
    for (const char c : text) {
        if (IsDigit(c)) {
            if (count < kYearSize) digits[count] = c;
            ++count;
        } else if (c != '[' && c != ']') {
            end();
        }
    }
    end();
}

template <class Take>
void ForEachYearOfImprint(const RecordInHand& record, Take take) {
    record.ForEachOf({260, 264}, [&](const CheckedField& field) {
        for (const auto& [code, text] : record.SubfieldsOf(field)) {
            if (code == 'c' || code == 'g') ForEachYear(text, take);
        }
    });
}

// Of these types, date 1 is a year that stands on the item.
bool HasYearOfItem(char type) {
    return type == 's' || type == 't' || type == 'e' || type == 'r';
}

RemarkWords WordsOfImprint(const RecordInHand& record, std::string_view year) {
    std::string list;
    ForEachYearOfImprint(record, [&list](std::string_view other) {
        list.append(list.empty() ? "" : ", ").append(other);
    });
    const unsigned tag = record.Has(264) ? 264 : 260;
    return {std::string(year), TagText(tag) + " $c has " + list};
}

void CheckImprint(const RecordInHand& record, const CheckedField& field, RemarkSink& remarks) {
    const std::string_view year = field.content.substr(7, kYearSize);
    // A reproduction is described by its original, whose year is date 2, with its own year in 533.
    const bool hasOriginal = field.content[6] == 'r' && record.Has(533);
    const std::string_view original = hasOriginal ? field.content.substr(11, kYearSize) : year;
    if (!HasYearOfItem(field.content[6]) || !std::ranges::all_of(year, IsDigit)) return;
    bool hasYears = false;
    bool hasYear = false;
    ForEachYearOfImprint(record, [&](std::string_view other) {
        hasYears = true;
        hasYear = hasYear || other == year || other == original;
    });
    if (!hasYears || hasYear) return;
    remarks.Add(RuleId::DateAgainstImprint, field.GetPlace().Positions(7, 10),
                [&] { return WordsOfImprint(record, year); });
}

}  // namespace

void CheckDates(const RecordInHand& record, RemarkSink& remarks) {
    const CheckedField* field = record.Whole008();
    if (field == nullptr) return;
    const auto* type = std::ranges::find(kTypes, field->content[6], &TypeOfDate::code);
    if (type == kTypes.end()) return;
    CheckDate(*field, *type, 1, remarks);
    CheckDate(*field, *type, 2, remarks);
    CheckImprint(record, *field, remarks);
}

}  // namespace quillory

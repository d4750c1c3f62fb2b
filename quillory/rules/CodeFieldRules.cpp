#include <quillory/rules/AreaCodes.h>
#include <quillory/rules/RuleFamilies.h>
#include <quillory/rules/Words.h>
#include <quillory/text/Ascii.h>
#include <quillory/text/NearestNames.h>

#include <algorithm>
#include <array>

namespace quillory {
namespace {

// The codes of instruments and voices in the MARC 21 Format for Bibliographic Data, field 048, by
// their first letter.
struct InstrumentFamily {
    char first;
    std::string_view seconds;
};

constexpr std::array kInstruments = std::to_array<InstrumentFamily>({
    {'b', "abcdefnuyz"},     // brass
    {'c', "abcdnuy"},        // choruses
    {'e', "abcdnuz"},        // electronic
    {'k', "abcdefnuyz"},     // keyboard
    {'o', "abcdefnuyz"},     // larger ensembles
    {'p', "abcdnuyz"},       // percussion
    {'s', "abcdefgnuyz"},    // bowed strings
    {'t', "abcdnuyz"},       // plucked strings
    {'v', "abcdefghijnuy"},  // voices
    {'w', "abcdefghinuyz"},  // woodwinds
    {'z', "nu"},             // instruments that are not specified
});

// A code, and perhaps how many play: "va02".
bool IsInstrument(std::string_view text) {
    constexpr std::size_t kCode = 2;
    if (text.size() != kCode && text.size() != 2 * kCode) return false;
    if (!std::ranges::all_of(text.substr(kCode), IsDigit)) return false;
    const auto family = std::ranges::find(kInstruments, text[0], &InstrumentFamily::first);
    return family != kInstruments.end() && family->seconds.find(text[1]) != std::string_view::npos;
}

// Two times a century and a decade: "w5x-".
bool IsTimePeriod(std::string_view text) {
    constexpr std::size_t kPeriod = 4;
    if (text.size() != kPeriod) return false;
    const auto isCentury = [](char c) { return 'a' <= c && c <= 'y'; };
    const auto isDecade = [](char c) { return IsDigit(c) || c == '-'; };
    return isCentury(text[0]) && isDecade(text[1]) && isCentury(text[2]) && isDecade(text[3]);
}

// An era and a time from the year to the hour: "d1972", "c0221".
bool IsFormattedTime(std::string_view text) {
    constexpr std::size_t kYear = 5;
    constexpr std::size_t kHour = 11;
    if (text.size() < kYear || kHour < text.size() || text.size() % 2 == 0) return false;
    return (text[0] == 'c' || text[0] == 'd') && std::ranges::all_of(text.substr(1), IsDigit);
}

void CheckArea(const CheckedField& field, std::string_view code, RemarkSink& remarks) {
    if (IsAreaCode(code)) return;
    const Place place = field.GetPlace().Subfield('a');
    const auto now = ObsoleteAreaCode(code);
    if (!now) {
        return remarks.Add(RuleId::AreaUnknown, place, [code] {
            return RemarkWords{Shown(code), PerhapsMeant(AreaCodeNear(code))};
        });
    }
    remarks.Add(RuleId::AreaObsolete, place, Shown(code),
                now->empty() ? "the list has no single code in its place" : SuccessorText(*now));
}

void CheckTime(const CheckedField& field, const SubfieldInHand& subfield, RemarkSink& remarks) {
    const Place place = field.GetPlace().Subfield(subfield.code);
    if (subfield.code == 'a' && !IsTimePeriod(subfield.text)) {
        remarks.Add(RuleId::PeriodMalformed, place, Shown(subfield.text),
                    "a letter and a digit for each end of the period, such as w5w9");
    } else if (subfield.code == 'b' && !IsFormattedTime(subfield.text)) {
        remarks.Add(RuleId::PeriodMalformed, place, Shown(subfield.text),
                    "c or d for the era, the year in four digits, and perhaps month, day and "
                    "hour, such as d1972");
    }
}

void CheckInstrument(const CheckedField& field, const SubfieldInHand& subfield,
                     RemarkSink& remarks) {
    const bool isCode = subfield.code == 'a' || subfield.code == 'b';
    const bool isOfOtherList = field.Indicator(2) == '7';
    if (!isCode || isOfOtherList || IsInstrument(subfield.text)) return;
    remarks.Add(RuleId::MusicCodeUnknown, field.GetPlace().Subfield(subfield.code),
                Shown(subfield.text));
}

}  // namespace

void CheckCodeFields(const RecordInHand& record, RemarkSink& remarks) {
    record.ForEachOf({43, 45, 48}, [&](const CheckedField& field) {
        for (const SubfieldInHand& subfield : record.SubfieldsOf(field)) {
            if (field.number == 45) {
                CheckTime(field, subfield, remarks);
            } else if (field.number == 48) {
                CheckInstrument(field, subfield, remarks);
            } else if (subfield.code == 'a') {
                CheckArea(field, subfield.text, remarks);
            }
        }
    });
}

}  // namespace quillory

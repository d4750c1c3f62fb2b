#pragma once

#include <zorby/checking/ErrorCode.h>

#include <cstdint>
#include <span>
#include <string_view>

namespace quillory {

// How much a finding weighs, from the heaviest down.
enum class Severity : std::uint8_t { Error, Warning, Note };

std::string_view SeverityText(Severity severity);

// Rules of a library's own have the numbers from Count on.
enum class RuleId : std::uint16_t {
    // Those of the library, under the policy in force, in the order of their codes.
    NoTitle,
    ManyTitles,
    NoPlaceOfPublication,
    NoPublisher,
    NoDateOfPublication,
    NoExtent,
    NoPhysicalDetails,
    NoDimensions,
    NoNotes,
    NoSubjects,
    DateUnknown,
    RunningTimeUnknown,
    PlaceUnknown,
    NoHoldings,
    ManyMainEntries100,
    ManyMainEntries110,
    ManyMainEntries111,
    ManyMainEntries130,
    SubfieldTooLong,
    FieldTooLong,
    RecordTooLong,
    TitleInCapitals,
    NotMarc,
    NotRepeatable,
    // What a record is made of.
    IndicatorUndefined,
    IndicatorObsolete,
    SourceMissing,
    FieldObsolete,
    SubfieldObsolete,
    FieldEmpty,
    SubfieldEmpty,
    SubfieldsInControlField,
    No001,
    No008,
    No040,
    SourceIncomplete,
    HeadingCount,
    Unimarc,
    ControlNumberRepeated,
    InvalidBytes,
    CharsetWrong,
    CharacterUndefined,
    OutsideMarc8,
    NumberRepeated,
    // Standard numbers and addresses.
    IsbnInvalid,
    IsbnWithText,
    IssnInvalid,
    StandardNumberInvalid,
    UrlMalformed,
    // Titles and series.
    NonfilingCount,
    TitleFirstIndicator,
    SeriesNotTraced,
    // Fields in other scripts.
    LinkMalformed,
    LinkWithoutPartner,
    ScriptCodeWrong,
    // Coded values.
    FieldLength,
    CodeUnknown,
    CodeObsolete,
    PositionUndefined,
    DateMalformed,
    DatesInWrongOrder,
    DateAgainstType,
    DateAgainstImprint,
    NoteAgainst008,
    LanguageUnknown,
    LanguageObsolete,
    LanguageAgainst008,
    CountryUnknown,
    CountryObsolete,
    AreaUnknown,
    AreaObsolete,
    PeriodMalformed,
    MusicCodeUnknown,
    MediaCodeUnknown,
    MediaTermAgainstCode,
    ContentAgainstType,
    CarrierAgainstMedia,
    CarrierAgainstExtent,
    CarrierWithout007,
    FormAgainstCarrier,
    // Punctuation.
    IsbdMark,
    MediumBrackets,
    HeadingMark,
    FinalMark,
    Count
};

inline constexpr std::size_t kRules = static_cast<std::size_t>(RuleId::Count);

// One rule of checking.
struct Rule {
    RuleId id;
    std::string_view name;  // never changes: "indicator-undefined"
    Severity severity;  // unless the user, or for the library's rules the policy, says otherwise
    std::string_view title;
    // What is said of a finding. {found} is what the record has, {allowed} what would be right.
    std::string_view words;
    std::string_view why;
    std::string_view example;       // a line of a record that breaks the rule
    std::string_view source;        // where the rule is published
    zorby::E_ERROR_CODE code = {};  // of a rule of the library; none for others
    std::string_view command = {};  // what a person can do about it on the command line
};

// All rules, by their number.
std::span<const Rule> Rules();
const Rule& RuleOf(RuleId id);
// Null if there is none of that name.
const Rule* RuleNamed(std::string_view name);
// The rule of a code of the library.
const Rule& RuleOf(zorby::E_ERROR_CODE code);

}  // namespace quillory

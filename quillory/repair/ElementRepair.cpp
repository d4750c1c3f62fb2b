#include <quillory/faults/FaultCode.h>
#include <quillory/repair/ElementRepair.h>
#include <quillory/repair/NationalCodes.h>
#include <quillory/repair/ValueBytes.h>
#include <quillory/repair/ValueInForm.h>

#include <algorithm>

namespace quillory {
namespace {

using namespace zorby;

constexpr std::string_view kIso639 = "ISO 639-2/T";
constexpr std::string_view kIso3166 = "ISO 3166-1";
constexpr std::string_view kNoPlace = "xx ";
constexpr std::string_view kNoLanguage = "und";

Judgement Left(RepairClass repairClass, FaultCode reason) {
    return {.repairClass = repairClass, .value = {}, .left = reason};
}

RepairClass ClassOfLost(std::string_view value) {
    return SaysNothing(value) ? RepairClass::NotCoded : RepairClass::UnknownValue;
}

// What the format has in these positions of every Leader; NUL elsewhere.
char ConstantOfLeader(int position) {
    constexpr std::string_view kEntryMap = "4500";
    constexpr int kFirstOfMap = kLeaderEntryMap;
    if (position == kLeaderIndicatorCount || position == kLeaderCodeCount) return '2';
    return position < kFirstOfMap ? '\0'
                                  : kEntryMap[static_cast<std::size_t>(position - kFirstOfMap)];
}

bool IsFormOfItem(const Element& element) {
    constexpr CFPart kParts[] = {CFP006BooksFormOfItem,      CFP006ComputerFileFormOfItem,
                                 CFP006MapFormOfItem,        CFP006MusicSoundFormOfItem,
                                 CFP006ContinuingFormOfItem, CFP006VisualFormOfItem,
                                 CFP006MixedFormOfItem};
    return std::ranges::find(kParts, element.parts.front()) != std::end(kParts);
}

// Whether a judgement may depend on other fields of the record.
bool AsksRecord(const Element& element, bool isIn008) {
    if (element.IsUndefined()) return false;
    const CFPart part = element.parts.front();
    return part == CFP008PlaceOfPublication || part == CFP008Language ||
           (isIn008 && IsFormOfItem(element));
}

// The places whose codes of three letters begin like that of a country speak English.
bool IsForeign(std::string_view language) {
    return language.size() == 3 && language != "eng" &&
           language.find_first_not_of("abcdefghijklmnopqrstuvwxyz") == language.npos &&
           language != kNoLanguage;
}

bool IsNumber(std::string_view value) {
    return value.find_first_not_of("0123456789 ") == value.npos;
}

std::string_view WithoutBlanksAtEnd(std::string_view value) {
    return value.substr(0, value.find_last_not_of(' ') + 1);
}

}  // namespace

ElementRepair::ElementRepair(const CodeLists& lists)
    : lists_(lists),
      country_(*ElementOfPart(CFP008PlaceOfPublication)),
      language_(*ElementOfPart(CFP008Language)),
      length008_(static_cast<std::size_t>(LengthOfForm(CF008Standard))),
      allowed_(lists) {}

std::optional<Judgement> ElementRepair::Judge(const Element& element, std::string_view value,
                                              bool isIn008, const RecordEvidence& facts) {
    if (allowed_.Allows(element, value)) return std::nullopt;
    Judgement judgement = JudgeMisfit(element, value, isIn008, facts);
    judgement.isOfRecord = AsksRecord(element, isIn008);
    return judgement;
}

Judgement ElementRepair::JudgeMisfit(const Element& element, std::string_view value, bool isIn008,
                                     const RecordEvidence& facts) {
    if (element.form == CFLdr && ConstantOfLeader(element.first) != '\0') {
        return {RepairClass::Structure, std::string(1, ConstantOfLeader(element.first))};
    }
    if (element.IsUndefined()) return JudgeUndefined(element, value);
    const CFPart part = element.parts.front();
    if (part == CFP008PlaceOfPublication) return JudgeCountry(element, value, facts);
    if (part == CFP008Language) return JudgeLanguage(element, value, facts);
    const std::string lower = AsciiLower(value);
    if (allowed_.Allows(element, lower)) return {RepairClass::Case, lower};
    if (auto inForm = ValueInForm(part, value); inForm && allowed_.Allows(element, *inForm)) {
        return {RepairClass::ObsoleteForm, *inForm};
    }
    if (isIn008 && IsFormOfItem(element) && facts.IsOnline()) {
        return {RepairClass::FromRecord, "o", "338 $b"};
    }
    const auto length = static_cast<std::size_t>(std::max(lists_.CodeLengthOf(element), 1));
    return length < value.size() ? JudgeCodes(element, value) : JudgeCode(element, value);
}

// The codes that were valid there once stay.
Judgement ElementRepair::JudgeUndefined(const Element& element, std::string_view value) const {
    std::string blanked(value);
    for (char& byte : blanked) {
        const std::string_view code(&byte, 1);
        if (byte != kFill && lists_.StateOf(element, code) == CodeState::Unknown) byte = ' ';
    }
    return {RepairClass::Undefined, blanked};
}

bool ElementRepair::IsCurrent(const Element& element, std::string_view code) const {
    const CodeState state = lists_.StateOf(element, code);
    return state == CodeState::Known || state == CodeState::Newer;
}

// Whether the code of two letters may be what is left of one of three, such as Delaware's.
bool ElementRepair::MayBeCut(std::string_view country) const {
    return std::ranges::any_of(lists_.CodesOf(country_), [&](const CodeMeaning& code) {
        return code.code.starts_with(country) && code.code.back() != ' ';
    });
}

// What the value itself says of the country; a judgement that leaves it if that is not certain.
Judgement ElementRepair::JudgeCountryCode(const Element& element, std::string_view value,
                                          const RecordEvidence& facts) {
    const std::string lower = AsciiLower(value);
    const std::string_view code = WithoutBlanksAtEnd(lower);
    const std::string iso(MarcCountryOf(code));
    if (allowed_.Allows(element, lower)) {
        if (iso.empty() || iso == lower) return {RepairClass::Case, lower};
        return Left(RepairClass::Case, FaultCode::kTwoCountries);
    }
    if (iso.empty()) return Left(RepairClass::UnknownValue, FaultCode::kNoCodeOfFormat);
    if (code.size() == 2 && MayBeCut(code) && !IsForeign(RepairedLanguage(facts))) {
        return Left(RepairClass::NationalCode, FaultCode::kCodeMayBeCut);
    }
    return {RepairClass::NationalCode, iso, kIso3166};
}

// The language of the 008, once it is repaired.
std::string ElementRepair::RepairedLanguage(const RecordEvidence& facts) {
    const std::string_view given = facts.Language008();
    const auto judgement = Judge(language_, given, true, facts);
    return judgement && !judgement->value.empty() ? judgement->value : std::string(given);
}

Judgement ElementRepair::JudgeCountry(const Element& element, std::string_view value,
                                      const RecordEvidence& facts) {
    Judgement own = JudgeCountryCode(element, value, facts);
    if (!own.value.empty()) return own;
    const std::string given = facts.Country();
    if (!given.empty() && IsCurrent(element, given)) {
        return {RepairClass::FromRecord, given, "044 $a"};
    }
    if (!SaysNothing(value)) return own;
    return {RepairClass::NotCoded, std::string(facts.NamesPlace() ? "|||" : kNoPlace)};
}

Judgement ElementRepair::JudgeLanguage(const Element& element, std::string_view value,
                                       const RecordEvidence& facts) {
    const std::string lower = AsciiLower(value);
    if (allowed_.Allows(element, lower)) return {RepairClass::Case, lower};
    if (const auto code = MarcLanguageOf(lower); !code.empty()) {
        return {RepairClass::NationalCode, std::string(code), kIso639};
    }
    const std::string given = facts.Language();
    if (!given.empty() && IsCurrent(element, given)) {
        return {RepairClass::FromRecord, given, "041 $a"};
    }
    if (!SaysNothing(value)) return Left(RepairClass::UnknownValue, FaultCode::kNoCodeOfFormat);
    return {RepairClass::NotCoded, std::string(facts.NamesLanguage() ? "|||" : kNoLanguage)};
}

// Of several codes, each by itself.
Judgement ElementRepair::JudgeCodes(const Element& element, std::string_view value) const {
    std::string codes(value);
    const auto length = static_cast<std::size_t>(lists_.CodeLengthOf(element));
    std::string lost;
    for (std::size_t i = 0; i + length <= codes.size(); i += length) {
        const std::string code = AsciiLower(codes.substr(i, length));
        if (lists_.StateOf(element, code) == CodeState::Unknown && !IsAll(code, ' ')) {
            lost += codes.substr(i, length);
            codes.replace(i, length, length, kFill);
        } else {
            codes.replace(i, length, code);
        }
    }
    if (lost.empty()) return {RepairClass::Case, codes};
    return {ClassOfLost(lost), codes};
}

// A number of which a digit is gone is left: what remains of it says more than nothing.
Judgement ElementRepair::JudgeCode(const Element& element, std::string_view value) {
    const bool isNumber = value.size() > 2 && value.find_first_of("0123456789") != value.npos;
    const auto unknown = UnknownOf(element);
    if (isNumber || !unknown) return Left(ClassOfLost(value), FaultCode::kNoCodeOfFormat);
    return {ClassOfLost(value), *unknown};
}

// The value that says nothing: not coded, or else unknown, if the element has a code for that.
std::optional<std::string> ElementRepair::UnknownOf(const Element& element) {
    const auto width = static_cast<std::size_t>(element.Width());
    const std::string fill(width, kFill);
    if (allowed_.Allows(element, fill)) return fill;
    const std::string unknown(width, 'u');
    const bool isUnknown =
        IsCurrent(element, unknown) && lists_.Find(element, unknown).text.starts_with("Unknown");
    return isUnknown ? std::optional(unknown) : std::nullopt;
}

std::optional<FaultCode> ElementRepair::WhyNot008(std::string_view field008) {
    constexpr std::size_t kEndOfLanguage = 38;
    if (field008.size() < kEndOfLanguage) return FaultCode::kShort008;
    const bool noLanguage = IsNoCodeIn(field008, language_);
    if (field008.size() != length008_) {
        const bool isShifted = noLanguage || IsNoCodeIn(field008, country_) ||
                               (field008.size() > length008_ && IsLanguageBehind(field008));
        return isShifted ? std::optional(FaultCode::kShifted008) : std::nullopt;
    }
    if (!noLanguage) return std::nullopt;
    if (IsNoCodeIn(field008, country_) && !IsNumber(field008.substr(0, 6))) {
        return FaultCode::kDisplaced008;
    }
    // A byte lost or added before it has moved the language.
    const bool isBeside =
        IsLanguageAt(field008, language_.first - 1) || IsLanguageAt(field008, language_.first + 1);
    return isBeside ? std::optional(FaultCode::kDisplacedLanguage) : std::nullopt;
}

// Whether a byte too many before the language makes another one: "beng" is English.
bool ElementRepair::IsLanguageBehind(std::string_view field008) {
    const auto behind =
        static_cast<std::size_t>(language_.first) + static_cast<std::size_t>(language_.Width());
    return !SaysNothing(field008.substr(behind, 1)) && IsLanguageAt(field008, language_.first + 1);
}

bool ElementRepair::IsLanguageAt(std::string_view field008, int first) {
    const auto width = static_cast<std::size_t>(language_.Width());
    const std::string_view value = field008.substr(static_cast<std::size_t>(first), width);
    return allowed_.Allows(language_, AsciiLower(value));
}

bool ElementRepair::IsNoCodeIn(std::string_view field008, const Element& element) {
    const std::string_view value = field008.substr(static_cast<std::size_t>(element.first),
                                                   static_cast<std::size_t>(element.Width()));
    return noCodes_.Get(element, value, [&] { return IsNoCode(element, value); });
}

// Not for a value that says nothing.
bool ElementRepair::IsNoCode(const Element& element, std::string_view value) {
    return !SaysNothing(value) && !allowed_.Allows(element, AsciiLower(value)) &&
           MarcLanguageOf(AsciiLower(value)).empty();
}

}  // namespace quillory

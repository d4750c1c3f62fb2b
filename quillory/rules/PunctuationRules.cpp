#include <quillory/checks/ByteSet.h>
#include <quillory/coded/IsbdMarks.h>
#include <quillory/rules/RuleFamilies.h>
#include <quillory/text/Marc8Escape.h>
#include <quillory/text/Trimmed.h>
#include <quillory/text/Utf8.h>
#include <quillory/text/Visible.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace quillory {
namespace {

constexpr std::size_t kDescriptiveForm = 18;  // in the Leader

constexpr ByteSet kControlSubfields = SetOf("0123456789uw");

bool IsControlSubfield(char code) {
    return kControlSubfields.Has(code);
}

std::string_view TrimmedAtEnd(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

// Nothing is missing after an empty text, or where an escape may hide the mark.
bool HasMark(std::string_view text, const IsbdMark& mark) {
    const std::string_view end = TrimmedAtEnd(text);
    return end.empty() || EndsWithMark(end, mark) || end.find(kEscape) != end.npos;
}

// What a mark looks like to a reader: "\" :\"", or two of them.
std::string Shown(const IsbdMark& mark) {
    std::string text = '"' + std::string(mark.mark) + '"';
    if (mark.others.starts_with('=')) text += " or \" =\"";
    return text;
}

// In brackets, what follows needs no mark before it: "$c(Spirit)", "$g(bulk 1950-1955)".
bool StandsAlone(std::string_view text) {
    return text.starts_with('(') || text.starts_with('[');
}

// `form` is Leader/18.
void CheckBetween(char form, const CheckedField& field, const SubfieldInHand& one,
                  const SubfieldInHand& next, RemarkSink& remarks) {
    const IsbdMark* mark = IsbdMarkBetween(field.number, one.code, next.code);
    if (mark == nullptr || HasMark(one.text, *mark)) return;
    const bool mayStandAlone = mark->isHeading || next.code == 'g';
    if (mayStandAlone && StandsAlone(next.text)) return;
    remarks.Add(mark->isHeading ? RuleId::HeadingMark : RuleId::IsbdMark,
                field.GetPlace().Subfield(one.code), [&] {
                    std::string needed = Shown(*mark) + " at its end before $" + next.code;
                    if (!mark->isHeading) {
                        needed += std::string(", since Leader/18 (") + form + ") says ISBD";
                    }
                    return RemarkWords{std::string("$") + one.code, std::move(needed)};
                });
}

void CheckMarks(const RecordInHand& record, const CheckedField& field, RemarkSink& remarks) {
    if (field.subfields < 2 || !HasIsbdMarks(field.number)) return;
    const SubfieldInHand* last = nullptr;
    for (const SubfieldInHand& subfield : record.SubfieldsOf(field)) {
        if (IsControlSubfield(subfield.code)) continue;
        if (last != nullptr) {
            CheckBetween(record.LeaderByte(kDescriptiveForm), field, *last, subfield, remarks);
        }
        last = &subfield;
    }
}

enum class End : std::uint8_t { Free, FinalMark, FinalMarkOfHeading };

// Fields that end with a full stop, unless another mark stands there.
constexpr End EndOf(unsigned tag) {
    constexpr std::array<unsigned, 7> kDescription{245, 500, 504, 511, 520, 538, 588};
    const bool isName = (100 <= tag && tag <= 130) || (700 <= tag && tag <= 730);
    if (isName || std::ranges::find(kDescription, tag) != kDescription.end()) {
        return End::FinalMark;
    }
    return 600 <= tag && tag <= 651 ? End::FinalMarkOfHeading : End::Free;
}

constexpr auto kEnds = [] {
    std::array<End, kTags> ends{};
    for (unsigned tag = 0; tag < kTags; ++tag) ends[tag] = EndOf(tag);
    return ends;
}();

// Of headings those of the Library of Congress, and of no thesaurus in particular; others have
// rules of their own.
bool NeedsFinalMark(const CheckedField& field) {
    const End end = kEnds[field.number];
    const char thesaurus = field.Indicator(2);
    return end == End::FinalMark ||
           (end == End::FinalMarkOfHeading && (thesaurus == '0' || thesaurus == '1'));
}

constexpr ByteSet kFinalMarks = SetOf(".?!-)]\"'>");

// The letters of extended Latin, as ANSEL has them.
constexpr ByteSet kLettersOfMarc8 =
    SetOf("\xA1\xA2\xA3\xA4\xA5\xA6\xAC\xAD\xB1\xB2\xB3\xB4\xB5\xB6\xB8\xBA\xBC\xBD\xC7");

bool IsLatinLetter(char32_t codePoint) {
    const bool isLatin = codePoint < 0x0250 || (0x1E00 <= codePoint && codePoint <= 0x1EFF);
    const auto category = utf8proc_category(static_cast<utf8proc_int32_t>(codePoint));
    return isLatin && (category == UTF8PROC_CATEGORY_LL || category == UTF8PROC_CATEGORY_LU);
}

// In UTF-8 or in MARC-8, whatever marks stand on the letter.
bool EndsInLatinLetter(std::string_view text) {
    while (!text.empty()) {
        const std::string_view bytes = LastCharacter(text);
        const Utf8Char last = DecodeUtf8(bytes);
        const bool isUtf8 = last.valid && last.size == bytes.size();
        if (!isUtf8) return kLettersOfMarc8.Has(text.back());
        if (!IsCombining(last.codePoint)) return IsLatinLetter(last.codePoint);
        text.remove_suffix(last.size);
    }
    return false;
}

// Beyond ASCII are marks and letters of other scripts, too, after which nothing is missing.
bool HasFinalMark(std::string_view text) {
    constexpr unsigned char kLastAscii = 0x7F;
    const bool isAscii = static_cast<unsigned char>(text.back()) <= kLastAscii;
    return isAscii ? kFinalMarks.Has(text.back()) : !EndsInLatinLetter(text);
}

void CheckEnd(const RecordInHand& record, const CheckedField& field, RemarkSink& remarks) {
    const auto subfields = record.SubfieldsOf(field);
    const auto isText = [](const SubfieldInHand& subfield) {
        return !IsControlSubfield(subfield.code);
    };
    const auto last = std::ranges::find_if(subfields.rbegin(), subfields.rend(), isText);
    // An address may close the field, and no full stop follows it.
    const bool endsInAddress = !subfields.empty() && subfields.back().code == 'u';
    if (last == subfields.rend() || endsInAddress) return;
    const std::string_view text = TrimmedAtEnd(last->text);
    if (text.empty() || HasFinalMark(text)) return;
    const bool hasEscape = !field.isPlain && text.find(kEscape) != text.npos;
    if (hasEscape || text.find("://") != text.npos) return;
    remarks.Add(RuleId::FinalMark, field.GetPlace().Subfield(last->code));
}

void CheckMedium(const RecordInHand& record, const CheckedField& field, RemarkSink& remarks) {
    if (!field.Has('h')) return;
    for (const auto& [code, text] : record.SubfieldsOf(field)) {
        const bool isBracketed = text.starts_with('[') && text.find(']') != text.npos;
        if (code != 'h' || text.empty() || isBracketed) continue;
        const std::string_view medium = text;
        remarks.Add(RuleId::MediumBrackets, field.GetPlace().Subfield('h'),
                    [medium] { return RemarkWords{'"' + Visible(medium) + '"'}; });
    }
}

}  // namespace

void CheckPunctuation(const RecordInHand& record, RemarkSink& remarks) {
    const char form = record.LeaderByte(kDescriptiveForm);
    if (form != 'a' && form != 'i') return;
    for (const CheckedField& field : record.Fields()) {
        if (!field.IsData()) continue;
        CheckMarks(record, field, remarks);
        if (field.number == 245) CheckMedium(record, field, remarks);
        if (form == 'a' && NeedsFinalMark(field)) CheckEnd(record, field, remarks);
    }
}

}  // namespace quillory

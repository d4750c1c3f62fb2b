#include <quillory/exchange/RecordCharset.h>
#include <quillory/exchange/Subfields.h>
#include <quillory/rules/CharacterRules.h>
#include <quillory/text/DefaultSets.h>
#include <quillory/text/Utf8.h>
#include <zorby/charset/PlainRun.h>

namespace quillory {
namespace {

// The marks around characters that are passed over in filing.
bool IsNonfilingMark(char32_t codePoint) {
    return codePoint == 0x98 || codePoint == 0x9C;
}

// Why a code point has no place in a record; empty if it has one.
std::string_view FaultOf(char32_t codePoint) {
    if (codePoint == kReplacementCharacter) return "stands for a character that was lost";
    if (IsNonfilingMark(codePoint)) return {};
    switch (utf8proc_category(static_cast<utf8proc_int32_t>(codePoint))) {
        case UTF8PROC_CATEGORY_CN:
            return "is not assigned in Unicode";
        case UTF8PROC_CATEGORY_CO:
            return "is for private use";
        case UTF8PROC_CATEGORY_CC:
            return "is a control character";
        default:
            return {};
    }
}

// Whether the bytes beyond ASCII are characters of UTF-8, and there are any.
bool IsUtf8(const RecordInHand& inHand) {
    Utf8Counts counts;
    for (const CheckedField& field : inHand.Fields()) {
        if (!field.isPlain) CountUtf8(field.content, counts);
        if (counts.invalid > 0) return false;
    }
    return counts.valid > 0;
}

}  // namespace

Charset CharacterRules::CharsetOf(const RecordInHand& inHand, RemarkSink& remarks) {
    const char label = inHand.LeaderByte(zorby::kLeaderCharacterCode);
    if (label == LabelFor(kCharsetUtf8)) return kCharsetUtf8;
    if (inHand.IsPlain() || !IsUtf8(inHand)) return kCharsetMarc8;
    if (label == LabelFor(kCharsetMarc8)) {
        constexpr int kAt = zorby::kLeaderCharacterCode;
        remarks.Add(RuleId::CharsetWrong, Place::OfLeader().Positions(kAt, kAt), {},
                    {'"', LabelFor(kCharsetUtf8), '"'});
    }
    return kCharsetUtf8;
}

// Printable ASCII has nothing that could be wrong.
void CharacterRules::Check(const Record& record, const RecordInHand& inHand, Charset charset,
                           RemarkSink& remarks) {
    const bool isUtf8 = charset == kCharsetUtf8;
    if (!isUtf8 && charset != kCharsetMarc8) return;
    if (inHand.IsPlain()) return;
    if (isUtf8) {
        if (const auto invalid = FirstInvalidByte(record)) {
            const bool isCoded = record.leader[zorby::kLeaderCharacterCode] == 'a';
            remarks.Add(RuleId::InvalidBytes, invalid->fault.place, "byte " + HexText(*invalid->at),
                        isCoded ? "; Leader/09 says UTF-8" : "");
            return;
        }
    }
    if (!remarks.Wants(RuleId::CharacterUndefined) && !remarks.Wants(RuleId::OutsideMarc8)) return;
    for (const CheckedField& field : inHand.Fields()) {
        if (!field.isPlain) CheckField(field, charset, remarks);
    }
}

void CharacterRules::CheckField(const CheckedField& field, Charset charset, RemarkSink& remarks) {
    const Place place = field.GetPlace();
    ForEachSubfield(field.content, [&](char code, std::string_view text) {
        if (TextConverter::IsUntouched(text)) return;
        if (charset == kCharsetUtf8) {
            CheckUtf8(place.Subfield(code), text, remarks);
        } else {
            CheckMarc8(place.Subfield(code), text, remarks);
        }
    });
}

void CharacterRules::CheckUtf8(const Place& place, std::string_view text, RemarkSink& remarks) {
    const char* const end = text.data() + text.size();
    for (std::string_view rest = text;;) {
        rest.remove_prefix(zorby::PlainRunLength(rest.data(), end));
        if (rest.empty()) break;
        const Utf8Char character = DecodeUtf8(rest);
        rest.remove_prefix(character.size);
        const std::string_view fault = FaultOf(character.codePoint);
        if (fault.empty()) continue;
        remarks.Add(RuleId::CharacterUndefined, place, CodePointName(character.codePoint),
                    std::string(fault));
        return;
    }
    if (!remarks.Wants(RuleId::OutsideMarc8)) return;
    converted_.clear();
    losses_.Clear();
    toMarc8_.Append(text, converted_, losses_);
    if (const auto lost = losses_.First(kLossReference)) {
        remarks.Add(RuleId::OutsideMarc8, place, CodePointName(*lost));
    }
}

void CharacterRules::CheckMarc8(const Place& place, std::string_view text, RemarkSink& remarks) {
    if (IsInDefaultSets(text)) return;
    converted_.clear();
    losses_.Clear();
    toUtf8_.Append(text, converted_, losses_);
    if (const auto lost = losses_.First(kLossReplaced)) {
        remarks.Add(RuleId::CharacterUndefined, place, "byte " + HexText(static_cast<char>(*lost)),
                    "is no character of MARC-8 where it stands");
    }
}

}  // namespace quillory

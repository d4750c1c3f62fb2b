#include <quillory/text/QmUnicode.h>
#include <zorby/charset/CodePoint.h>
#include <zorby/charset/KeyTable.h>
#include <zorby/charset/PlainRun.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr unsigned kFirstPrecomposed = 0xDE;
constexpr unsigned char kHookAbove = 0xA2;  // stands before its letter, as in MARC-8

unsigned char At(std::string_view text, std::size_t at) {
    return at < text.size() ? static_cast<unsigned char>(text[at]) : static_cast<unsigned char>(0);
}

bool IsMark(unsigned code) {
    return code >= 0xA3 && code <= 0xBE;
}

bool IsDoubleMark(unsigned char code) {
    constexpr std::string_view kHalves = "\xAD\xAE\xBC\xBD";
    return kHalves.find(static_cast<char>(code)) != std::string_view::npos;
}

// The engine moves no diacritic over a change of alphabet: in another alphabet, and just after it,
// a text with diacritics can be read in two ways.
bool TakesMarks(std::string_view before, unsigned char base) {
    const auto isBasic = [](unsigned char code) {
        return zorby::KeyRecordOf(code).alphabet == zorby::kAlphabetBasic;
    };
    return isBasic(base) && (before.empty() || isBasic(static_cast<unsigned char>(before.back())));
}

// A code that stands for a character of its own, on which a diacritic can be set.
bool IsBase(unsigned code) {
    return code >= 0x20 && code != 0x7F && !IsMark(code) && code != kHookAbove;
}

std::string Utf8Of(unsigned code) {
    std::string utf8;
    AppendUtf8(zorby::CodePointOf(static_cast<unsigned char>(code)), utf8);
    return utf8;
}

}  // namespace

const QmUnicode& QmUnicode::Of(NormalForm form) {
    if (form == kNormalFormD) {
        static const QmUnicode decomposed(kNormalFormD);
        return decomposed;
    }
    static const QmUnicode composed(kNormalFormC);
    return composed;
}

QmUnicode::QmUnicode(NormalForm form) : single_{}, marked_{}, low_{} {
    for (unsigned base = 0xFF; base >= 0x20; --base) {
        if (!IsBase(base)) continue;
        const auto code = static_cast<unsigned char>(base);
        const std::string letter = Utf8Of(base);
        AddSequence({code, 0}, letter, single_[base]);
        if (base >= kFirstPrecomposed) continue;
        for (unsigned i = 0; i < kMarks; ++i) {
            const auto mark = static_cast<unsigned char>(kFirstMark + i);
            if (IsDoubleMark(mark)) continue;
            AddSequence({code, mark}, letter + Utf8Of(mark), marked_[base][i]);
        }
    }
    if (form == kNormalFormD) {
        for (Sequence& sequence : single_) Decompose(sequence);
        for (auto& row : marked_) {
            for (Sequence& sequence : row) Decompose(sequence);
        }
    }
    for (unsigned code = kFirstMark; code < kFirstMark + kMarks; ++code) {
        const auto mark = static_cast<unsigned char>(code);
        high_[zorby::CodePointOf(mark)] = {mark, 0};
        if (const auto* const known = zorby::DoubleDiacriticOf(mark)) {
            high_[known->codePoint] = {mark, 0};
        }
    }
}

void QmUnicode::Decompose(Sequence& sequence) {
    const std::string normal = Normalized({sequence.bytes.data(), sequence.size}, kNormalFormD);
    sequence.size = static_cast<std::uint8_t>(normal.copy(sequence.bytes.data(), kLongest));
}

// Of several codes for a character the shortest counts, which is added last.
void QmUnicode::AddSequence(Codes codes, const std::string& utf8, Sequence& sequence) {
    const std::string normal = Normalized(utf8, kNormalFormC);
    sequence.size = static_cast<std::uint8_t>(normal.copy(sequence.bytes.data(), kLongest));
    const Utf8Char character = DecodeUtf8(normal);
    if (character.size != normal.size()) return;
    Codes& known =
        character.codePoint < low_.size() ? low_[character.codePoint] : high_[character.codePoint];
    if (known.first == 0 || codes.second == 0) known = codes;
}

// Letters under one double diacritic: letter, first half, letter, second half. Result: codes taken.
std::size_t QmUnicode::AppendLigature(std::string_view qm, std::string& utf8) const {
    const auto* const known = zorby::DoubleDiacriticOf(At(qm, 1));
    const unsigned char second = At(qm, 2);
    const bool whole = known != nullptr && IsBase(second) && At(qm, 3) == known->secondHalf &&
                       !IsMark(At(qm, 4)) && At(qm, 0) < kFirstPrecomposed &&
                       second < kFirstPrecomposed;
    if (!whole) return 0;
    const Sequence& first = single_[At(qm, 0)];
    utf8.append(first.bytes.data(), first.size);
    quillory::AppendUtf8(known->codePoint, utf8);
    utf8.append(single_[second].bytes.data(), single_[second].size);
    return 4;
}

// A character, with its diacritic if one follows. Result: codes taken, 0 if it is refused.
std::size_t QmUnicode::AppendLetter(std::string_view before, std::string_view qm,
                                    std::string& utf8) const {
    const unsigned char base = At(qm, 0);
    const unsigned char mark = At(qm, 1);
    if (!IsBase(base)) return 0;
    const bool hasMark = IsMark(mark);
    if (hasMark && !TakesMarks(before, base)) return 0;
    if (hasMark && IsDoubleMark(mark)) return AppendLigature(qm, utf8);
    if (hasMark && IsMark(At(qm, 2))) return 0;
    const Sequence& sequence = hasMark ? marked_[base][mark - kFirstMark] : single_[base];
    utf8.append(sequence.bytes.data(), sequence.size);
    if (sequence.size == 0) return 0;
    return hasMark ? 2 : 1;
}

// A diacritic may follow the last letter of a plain run.
bool QmUnicode::AppendUtf8(std::string_view text, std::string& utf8) const {
    std::string_view qm = text;
    while (!qm.empty()) {
        const std::size_t run = zorby::PlainRunLength(qm.data(), qm.data() + qm.size());
        const std::size_t plain = run == qm.size() ? run : run - std::min<std::size_t>(run, 1);
        utf8.append(qm.substr(0, plain));
        qm.remove_prefix(plain);
        if (qm.empty()) break;
        const std::string_view before = text.substr(0, text.size() - qm.size());
        const std::size_t taken = AppendLetter(before, qm, utf8);
        if (taken == 0) return false;
        qm.remove_prefix(taken);
    }
    return true;
}

const QmUnicode::Codes* QmUnicode::Find(char32_t codePoint) const {
    if (codePoint < low_.size()) {
        return low_[codePoint].first != 0 ? &low_[codePoint] : nullptr;
    }
    const auto found = high_.find(codePoint);
    return found != high_.end() ? &found->second : nullptr;
}

// One character with the diacritic that follows it. Result: bytes taken, 0 if it is refused.
std::size_t QmUnicode::AppendCodes(std::string_view utf8, std::string& qm) const {
    const Utf8Char base = DecodeUtf8(utf8);
    const Codes* letter = base.valid ? Find(base.codePoint) : nullptr;
    if (letter == nullptr || !IsBase(letter->first)) return 0;
    const bool takesMarks = TakesMarks(qm, letter->first);
    if (letter->second != 0 && !takesMarks) return 0;
    qm += static_cast<char>(letter->first);
    if (letter->second != 0) qm += static_cast<char>(letter->second);
    std::size_t taken = base.size;
    if (taken == utf8.size() || At(utf8, taken) < 0x80) return taken;

    const Utf8Char next = DecodeUtf8(utf8.substr(taken));
    if (!next.valid || !IsCombining(next.codePoint)) return taken;
    const Codes* mark = Find(next.codePoint);
    const bool bare = takesMarks && letter->second == 0 && letter->first < kFirstPrecomposed;
    if (mark == nullptr || !IsMark(mark->first) || !bare) return 0;
    qm += static_cast<char>(mark->first);
    taken += next.size;
    const auto* const known = zorby::DoubleDiacriticAt(next.codePoint);
    if (known == nullptr) return taken;

    const Utf8Char other = DecodeUtf8(utf8.substr(std::min(taken, utf8.size() - 1)));
    const Codes* second = other.valid && taken < utf8.size() ? Find(other.codePoint) : nullptr;
    if (second == nullptr || second->second != 0 || second->first >= kFirstPrecomposed ||
        !IsBase(second->first)) {
        return 0;
    }
    qm += static_cast<char>(second->first);
    qm += static_cast<char>(known->secondHalf);
    return taken + other.size;
}

bool QmUnicode::AppendQm(std::string_view utf8, std::string& qm) const {
    while (!utf8.empty()) {
        const std::size_t run = zorby::PlainRunLength(utf8.data(), utf8.data() + utf8.size());
        const std::size_t plain = run == utf8.size() ? run : run - std::min<std::size_t>(run, 1);
        qm.append(utf8.substr(0, plain));
        utf8.remove_prefix(plain);
        if (utf8.empty()) break;
        const std::size_t taken = AppendCodes(utf8, qm);
        if (taken == 0) return false;
        utf8.remove_prefix(taken);
    }
    return true;
}

}  // namespace quillory

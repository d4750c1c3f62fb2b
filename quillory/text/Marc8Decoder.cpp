#include <quillory/text/Ascii.h>
#include <quillory/text/DefaultSets.h>
#include <quillory/text/Marc8Escape.h>
#include <quillory/text/Marc8Unicode.h>
#include <quillory/text/Utf8.h>
#include <zorby/charset/PlainRun.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

bool IsHigh(char c) {
    return static_cast<unsigned char>(c) >= 0x80;
}

// Of a double diacritic.
bool IsFirstHalf(char c) {
    return c == '\xEB' || c == '\xFA';
}

bool IsSecondHalf(char c) {
    return c == '\xEC' || c == '\xFB';
}

}  // namespace

// Reads MARC-8 in units of diacritics and a letter, under the sets that escapes have designated.
class Marc8Unicode::Decoder {
public:
    Decoder(std::string_view text, Marc8Unicode& owner, std::string& out, Losses& losses)
        : text_(text), owner_(owner), out_(out), losses_(losses), sets_(&owner.defaultSets_) {}

    void Run() {
        while (at_ < text_.size()) {
            TakePlainRun();
            if (at_ == text_.size()) return;
            const char c = text_[at_];
            if (c == kEscape) {
                if (TakeEscape() == 0) Lose(text_.substr(at_++, 1));
            } else if (IsAsciiControl(c)) {
                out_ += c;
                ++at_;
            } else if (!TakeKnownUnit()) {
                TakeUnit();
            }
        }
    }

private:
    struct Set {
        std::string escape;     // that designates it; empty for the default
        std::size_t width = 1;  // bytes of a character
    };

    void TakePlainRun();
    std::size_t TakeEscape();
    bool TakeKnownUnit();
    void TakeUnit();
    bool TakeSecondHalf();
    std::size_t WidthHere() const;
    std::size_t EndOfRun();
    bool IsCharacter(const std::string& bytes) const;
    bool LoseBrokenCharacter();
    void TakeCharacter(std::string& unit);
    void TakeLoneDiacritic(Sets& sets, const std::string& unit);
    void Lose(std::string_view bytes);

    std::string_view text_;
    Marc8Unicode& owner_;
    std::string& out_;
    Losses& losses_;
    std::size_t at_ = 0;
    std::size_t runEnd_ = 0;  // of the run that is being read
    Set g0_;
    Set g1_;
    Sets* sets_;  // what the owner knows of both
    bool doubleMarkOpen_ = false;
};

void Marc8Unicode::Decoder::TakePlainRun() {
    if (!g0_.escape.empty()) return;
    const char* const begin = text_.data() + at_;
    const std::size_t run = zorby::PlainRunLength(begin, text_.data() + text_.size());
    out_.append(begin, run);
    at_ += run;
}

// Takes what most letters are, a byte or two that were met before. Result: whether it did.
bool Marc8Unicode::Decoder::TakeKnownUnit() {
    constexpr std::size_t kMost = 2;
    const char first = text_[at_];
    if (g0_.width != 1 || g1_.width != 1 || IsFirstHalf(first) || IsSecondHalf(first)) return false;
    for (std::size_t size = 1; size <= std::min(kMost, text_.size() - at_); ++size) {
        const Decoded* const known = sets_->Find(text_.substr(at_, size));
        if (known == nullptr || known->outcome == YazConverter::kFailed) return false;
        if (known->outcome == YazConverter::kIncomplete) continue;
        if (known->utf8.empty()) return false;
        out_ += known->utf8;
        at_ += size;
        return true;
    }
    return false;
}

// Result: bytes taken, 0 if there is no escape.
std::size_t Marc8Unicode::Decoder::TakeEscape() {
    const Marc8Escape escape = ReadMarc8Escape(text_.substr(at_));
    if (escape.size == 0) return 0;
    (escape.isG1 ? g1_ : g0_) = {std::string(escape.bytes), escape.width};
    if (escape.bytes.empty()) (escape.isG1 ? g1_ : g0_).width = 1;
    sets_ = &owner_.SetsFor(g0_.escape + g1_.escape);
    at_ += escape.size;
    return escape.size;
}

void Marc8Unicode::Decoder::Lose(std::string_view bytes) {
    for (const char c : bytes) losses_.Add(kLossReplaced, static_cast<unsigned char>(c));
    quillory::AppendUtf8(kReplacementCharacter, out_);
}

// The first half of a double diacritic stands for both; a second half without it is lost.
bool Marc8Unicode::Decoder::TakeSecondHalf() {
    const char c = text_[at_];
    if (!g1_.escape.empty() || !IsSecondHalf(c)) return false;
    if (!std::exchange(doubleMarkOpen_, false)) Lose(text_.substr(at_, 1));
    ++at_;
    return true;
}

std::size_t Marc8Unicode::Decoder::WidthHere() const {
    const char c = text_[at_];
    return c == ' ' ? 1 : IsHigh(c) ? g1_.width : g0_.width;
}

// Where a run of characters of the same set ends: an escape, a blank or a control ends it.
std::size_t Marc8Unicode::Decoder::EndOfRun() {
    if (at_ < runEnd_) return runEnd_;
    const bool isHigh = IsHigh(text_[at_]);
    for (runEnd_ = at_ + 1; runEnd_ < text_.size(); ++runEnd_) {
        const char c = text_[runEnd_];
        if (IsHigh(c) != isHigh || IsAsciiControl(c) || c == ' ') break;
    }
    return runEnd_;
}

// libyaz passes over some bytes without a word.
bool Marc8Unicode::Decoder::IsCharacter(const std::string& bytes) const {
    const Decoded& decoded = owner_.Decode(*sets_, bytes);
    return decoded.outcome == YazConverter::kDone && !decoded.utf8.empty();
}

// What is no character of a set of three bytes is lost without what follows: a whole character if
// the run is made of whole ones, or else a byte, since one is missing and the next ones may agree.
bool Marc8Unicode::Decoder::LoseBrokenCharacter() {
    const std::size_t width = WidthHere();
    if (width == 1) return false;
    const std::size_t run = EndOfRun() - at_;
    if (run >= width && IsCharacter(std::string(text_.substr(at_, width)))) return false;
    const std::size_t lost = run % width == 0 ? width : 1;
    Lose(text_.substr(at_, lost));
    at_ += lost;
    return true;
}

void Marc8Unicode::Decoder::TakeCharacter(std::string& unit) {
    const char c = text_[at_];
    const std::size_t size = std::min(WidthHere(), text_.size() - at_);
    if (g1_.escape.empty() && IsFirstHalf(c)) doubleMarkOpen_ = true;
    unit += text_.substr(at_, size);
    at_ += size;
}

void Marc8Unicode::Decoder::TakeLoneDiacritic(Sets& sets, const std::string& unit) {
    const Decoded& decoded = owner_.Decode(sets, unit + " ");
    if (decoded.outcome != YazConverter::kDone || decoded.utf8.size() < 2) {
        Lose(unit);
        return;
    }
    losses_.Add(kLossNoLetter, DecodeUtf8(std::string_view(decoded.utf8).substr(1)).codePoint);
    out_ += decoded.utf8;
}

// An escape may stand between a diacritic and its letter. Diacritics of the default sets are no
// letter yet, however many of them come: to decode all of them with each one would take the square
// of their number.
void Marc8Unicode::Decoder::TakeUnit() {
    Sets& sets = *sets_;
    std::string unit;
    bool begun = false;
    bool hasDiacriticsAlone = sets_ == &owner_.defaultSets_;
    auto outcome = YazConverter::kIncomplete;
    while (outcome == YazConverter::kIncomplete && at_ < text_.size()) {
        if (text_[at_] == kEscape) {
            const std::size_t size = TakeEscape();
            if (size == 0) break;
            unit += text_.substr(at_ - size, size);
            hasDiacriticsAlone = false;
        } else if (IsAsciiControl(text_[at_])) {
            break;
        } else if (LoseBrokenCharacter()) {
            if (begun) continue;
            return;
        } else if (!TakeSecondHalf()) {
            hasDiacriticsAlone = hasDiacriticsAlone && IsDefaultDiacritic(text_[at_]);
            TakeCharacter(unit);
            if (std::exchange(begun, true) && hasDiacriticsAlone) continue;
            const Decoded& decoded = owner_.Decode(sets, unit);
            outcome = decoded.outcome;
            if (outcome == YazConverter::kDone && !decoded.utf8.empty()) {
                out_ += decoded.utf8;
                return;
            }
        }
    }
    if (!begun) return;
    if (outcome == YazConverter::kIncomplete) {
        TakeLoneDiacritic(sets, unit);
    } else {
        Lose(unit);
    }
}

void Marc8Unicode::AppendUtf8(std::string_view marc8, std::string& utf8, Losses& losses) {
    Decoder(marc8, *this, utf8, losses).Run();
}

}  // namespace quillory

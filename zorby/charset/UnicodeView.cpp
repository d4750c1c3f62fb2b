#include <zorby/charset/PlainRun.h>
#include <zorby/charset/QmCode.h>
#include <zorby/charset/UnicodeView.h>
#include <zorby/charset/detail/UnicodeSigns.h>

#include <algorithm>

namespace zorby {

// Shows a text of the `Qm` code letter by letter.
class UnicodeView::Builder {
public:
    Builder(std::string_view text, UnicodeView& view) : text_(text), view_(view) {}

    void Build() {
        while (at_ < text_.size()) {
            TakePlainRun();
            if (at_ < text_.size()) TakeLetter();
        }
    }

private:
    // Returns 0 after the end.
    unsigned char Code(std::size_t at) const {
        return at < text_.size() ? static_cast<unsigned char>(text_[at])
                                 : static_cast<unsigned char>(0);
    }
    std::size_t MarksEnd(std::size_t at) const {
        while (IsDiacritic(Code(at))) ++at;
        return at;
    }
    void Show(std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i) {
            if (i != hidden_) view_.units_ += QmSign(Code(i));
        }
    }

    void TakePlainRun();
    void TakeLetter();
    std::size_t ShowLetter();
    std::size_t ShowHooked();
    const DoubleDiacritic* DoubleHere() const;

    std::string_view text_;
    UnicodeView& view_;
    std::size_t at_ = 0;
    std::size_t hidden_ = std::string_view::npos;  // a second half that the first half shows
};

// The last byte of a plain run can be followed by a diacritic.
void UnicodeView::Builder::TakePlainRun() {
    const char* const begin = text_.data() + at_;
    const std::size_t run = PlainRunLength(begin, text_.data() + text_.size());
    const std::size_t plain = run == 0 || at_ + run == text_.size() ? run : run - 1;
    view_.units_.append(begin, begin + plain);
    at_ += plain;
}

void UnicodeView::Builder::TakeLetter() {
    const std::size_t unit = view_.units_.size();
    const std::size_t end = Code(at_) == kHookAbove ? ShowHooked() : ShowLetter();
    const std::size_t unitEnd = view_.units_.size();
    if (end - at_ != 1 || unitEnd - unit != 1) {
        view_.letters_.push_back({at_, end, unit, unitEnd});
    }
    at_ = end;
}

std::size_t UnicodeView::Builder::ShowLetter() {
    const std::size_t end = MarksEnd(at_ + 1);
    if (const DoubleDiacritic* const known = DoubleHere()) {
        Show(at_, at_ + 1);
        view_.units_ += known->codePoint;
        hidden_ = at_ + 3;
    } else {
        Show(at_, end);
    }
    return end;
}

// Diacritics between the hook and its letter belong to the letter too.
std::size_t UnicodeView::Builder::ShowHooked() {
    const std::size_t letter = MarksEnd(at_ + 1);
    const bool hasLetter = CanCarryDiacritic(Code(letter));
    const std::size_t marks = hasLetter ? letter + 1 : letter;
    const std::size_t end = MarksEnd(marks);
    Show(letter, marks);
    if (!hasLetter) view_.units_ += kDottedCircle;
    Show(at_ + 1, letter);
    Show(at_, at_ + 1);
    Show(marks, end);
    return end;
}

// Two letters share a diacritic if each has its half and no other.
const DoubleDiacritic* UnicodeView::Builder::DoubleHere() const {
    const DoubleDiacritic* const known = DoubleDiacriticOf(Code(at_ + 1));
    const bool isWhole = known != nullptr && CanCarryDiacritic(Code(at_)) &&
                         CanCarryDiacritic(Code(at_ + 2)) && Code(at_ + 3) == known->secondHalf &&
                         !IsDiacritic(Code(at_ + 4));
    return isWhole ? known : nullptr;
}

UnicodeView::UnicodeView(std::string_view text, int type) : size_(text.size()) {
    units_.reserve(size_);
    if (type != kDisplayANSI) {
        Builder(text, *this).Build();
        return;
    }
    for (const char byte : text) units_ += AnsiSign(static_cast<unsigned char>(byte));
}

namespace {

// The last of the letters that begins at or before a position on one of the two sides, or null.
template <class Letters, class Begin>
auto LastFrom(const Letters& letters, Begin begin, std::size_t at) {
    const auto after = std::upper_bound(
        letters.begin(), letters.end(), at,
        [begin](std::size_t wanted, const auto& letter) { return wanted < letter.*begin; });
    return after == letters.begin() ? nullptr : &*std::prev(after);
}

}  // namespace

std::size_t UnicodeView::UnitAt(std::size_t byte) const {
    const std::size_t at = std::min(byte, size_);
    const Letter* const letter = LastFrom(letters_, &Letter::byte, at);
    if (letter == nullptr) return at;
    if (at >= letter->byteEnd) return letter->unitEnd + (at - letter->byteEnd);
    return std::min(letter->unit + (at - letter->byte), letter->unitEnd);
}

std::size_t UnicodeView::ByteAt(std::size_t unit) const {
    const std::size_t at = std::min(unit, units_.size());
    const Letter* const letter = LastFrom(letters_, &Letter::unit, at);
    if (letter == nullptr) return at;
    if (at >= letter->unitEnd) return letter->byteEnd + (at - letter->unitEnd);
    return std::min(letter->byte + (at - letter->unit), letter->byteEnd);
}

const UnicodeView::Letter* UnicodeView::LetterAround(std::size_t byte) const {
    const Letter* const letter = LastFrom(letters_, &Letter::byte, byte);
    const bool isInside = letter != nullptr && letter->byte < byte && byte < letter->byteEnd;
    return isInside ? letter : nullptr;
}

std::size_t UnicodeView::LetterStart(std::size_t byte) const {
    const Letter* const letter = LetterAround(byte);
    return letter != nullptr ? letter->byte : std::min(byte, size_);
}

std::size_t UnicodeView::LetterEnd(std::size_t byte) const {
    const Letter* const letter = LetterAround(byte);
    return letter != nullptr ? letter->byteEnd : std::min(byte, size_);
}

const std::u16string& UnicodeView::Text() const {
    return units_;
}

}  // namespace zorby

#include <zorby/charset/QmCode.h>
#include <zorby/charset/UnicodeToQm.h>
#include <zorby/charset/detail/UnicodeLetters.h>
#include <zorby/charset/detail/UnicodeSigns.h>

#include <utility>

namespace zorby {
namespace {

void AddUnplaced(std::vector<CodedText::Stretch>& unplaced, std::size_t start, std::size_t length) {
    if (!unplaced.empty() && unplaced.back().start + unplaced.back().length == start) {
        unplaced.back().length += length;
    } else {
        unplaced.push_back({start, length});
    }
}

bool IsBasic(unsigned char code) {
    return kKeyTable[code].alphabet == kAlphabetBasic;
}

// The code of a letter to which a diacritic can be added, or 0.
unsigned char BareLetter(char16_t base) {
    const unsigned char code = CodeOf(base);
    const bool isBare = CanCarryDiacritic(code) && IsBasic(code) && kKeyTable[code].marc2 == 0;
    return isBare ? code : static_cast<unsigned char>(0);
}

// The codes of the marks on a letter, 0 for none. With a hook, one can come before it and one
// after.
struct Marks {
    unsigned char hook = 0;
    unsigned char beforeHook = 0;
    unsigned char after = 0;
};

// Returns false if there are more marks, or others.
bool SplitMarks(std::u16string_view given, Marks& marks) {
    for (const char16_t unit : given) {
        const unsigned char code = CodeOf(unit);
        if (code == kHookAbove && marks.hook == 0) {
            marks = {code, marks.after, 0};
        } else if (IsDiacritic(code) && marks.after == 0) {
            marks.after = code;
        } else {
            return false;
        }
    }
    return true;
}

class QmWriter {
public:
    explicit QmWriter(std::u16string_view text) : letters_(text) {}

    CodedText Write();

private:
    void Put(unsigned char code) { out_.text += static_cast<char>(code); }
    // CSZorbyToMARC moves no diacritic over a change of alphabet.
    bool CanPutMark() const {
        return out_.text.empty() || IsBasic(static_cast<unsigned char>(out_.text.back()));
    }
    bool Place(const UnicodeLetter& letter);
    bool PlaceWhole(unsigned char code);
    bool PlaceMarked(const UnicodeLetter& letter);
    bool PlaceDouble(const UnicodeLetter& letter, const DoubleDiacritic& mark);

    UnicodeLetters letters_;
    CodedText out_;
};

CodedText QmWriter::Write() {
    while (!letters_.AtEnd()) {
        const std::u16string_view plain = letters_.PlainRun();
        for (const char16_t unit : plain) out_.text += static_cast<char>(unit);
        if (letters_.AtEnd()) break;
        const UnicodeLetter letter = letters_.Next();
        if (!Place(letter)) AddUnplaced(out_.unplaced, letter.start, letter.length);
    }
    return std::move(out_);
}

bool QmWriter::Place(const UnicodeLetter& letter) {
    if (letter.whole != 0) return PlaceWhole(letter.whole);
    if (letter.isMark) {
        const unsigned char mark = CodeOf(letter.marks.front());
        if (IsDiacritic(mark)) Put(mark);
        return IsDiacritic(mark);
    }
    const DoubleDiacritic* const mark =
        letter.marks.size() == 1 ? DoubleDiacriticAt(letter.marks.front()) : nullptr;
    return mark != nullptr ? PlaceDouble(letter, *mark) : PlaceMarked(letter);
}

bool QmWriter::PlaceWhole(unsigned char code) {
    if (kKeyTable[code].marc2 != 0 && !CanPutMark()) return false;
    Put(code);
    return true;
}

bool QmWriter::PlaceMarked(const UnicodeLetter& letter) {
    Marks marks;
    if (!SplitMarks(letter.marks, marks)) return false;
    const unsigned char base = BareLetter(letter.base);
    const bool isHookAlone = letter.base == kDottedCircle && marks.hook != 0 && marks.after == 0;
    const unsigned char first = marks.hook != 0 ? marks.beforeHook : marks.after;
    if ((base == 0 && !isHookAlone) || (first != 0 && !CanPutMark())) return false;
    for (const unsigned char code : {marks.hook, marks.beforeHook, base, marks.after}) {
        if (code != 0) Put(code);
    }
    return true;
}

bool QmWriter::PlaceDouble(const UnicodeLetter& letter, const DoubleDiacritic& mark) {
    const unsigned char first = BareLetter(letter.base);
    if (first == 0 || !CanPutMark() || letters_.AtEnd()) return false;
    UnicodeLetters after = letters_;
    const UnicodeLetter other = after.Next();
    const unsigned char second = other.marks.empty() ? BareLetter(other.base) : 0;
    if (second == 0) return false;
    for (const unsigned char code : {first, mark.firstHalf, second, mark.secondHalf}) Put(code);
    letters_ = after;
    return true;
}

// The first of 256 display codes that is shown so. Returns 0 if none is.
unsigned char AnsiCodeOf(char16_t unit) {
    if (unit == kNoCharacterSign) return 0;
    for (unsigned code = 1; code < 256; ++code) {
        if (AnsiSign(static_cast<unsigned char>(code)) == unit) {
            return static_cast<unsigned char>(code);
        }
    }
    return 0;
}

}  // namespace

CodedText UnicodeToQm(std::u16string_view text) {
    return QmWriter(text).Write();
}

CodedText UnicodeToDisplay(std::u16string_view text, int type) {
    if (type != kDisplayANSI) return UnicodeToQm(text);
    CodedText out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const unsigned char code = AnsiCodeOf(text[i]);
        if (code != 0) {
            out.text += static_cast<char>(code);
        } else {
            AddUnplaced(out.unplaced, i, 1);
        }
    }
    return out;
}

}  // namespace zorby

#include <zorby/charset/Compare.h>
#include <zorby/charset/Convert.h>
#include <zorby/charset/QmCode.h>
#include <zorby/charset/UnicodeToQm.h>
#include <zorby/charset/UnicodeView.h>

#include <algorithm>
#include <fuzz/Expect.h>
#include <string>

namespace zorby {
namespace {

using fuzz::Expect;

constexpr char kBlankForDiacritic = 0x1F;
constexpr char kHookAbove = static_cast<char>(0xA2);

// A screen and the text behind it go forwards together, letter by letter.
void CheckPositions(const std::string& text, const UnicodeView& view) {
    const std::size_t units = view.Text().size();
    Expect(view.UnitAt(0) == 0 && view.ByteAt(0) == 0, "both begin at 0");
    Expect(view.UnitAt(text.size()) == units && view.ByteAt(units) == text.size(),
           "both end together");
    for (std::size_t i = 0; i <= text.size(); ++i) {
        const std::size_t start = view.LetterStart(i);
        const std::size_t end = view.LetterEnd(i);
        Expect(start <= i && i <= end && end <= text.size(), "a position is in its letter");
        Expect(view.LetterStart(start) == start && view.LetterEnd(end) == end,
               "the limits of a letter are between letters");
        Expect(view.ByteAt(view.UnitAt(start)) == start, "the begin of a letter comes back");
        Expect(i == 0 || view.UnitAt(i - 1) <= view.UnitAt(i), "units never go back");
    }
    for (std::size_t i = 1; i <= units; ++i) {
        Expect(view.ByteAt(i - 1) <= view.ByteAt(i), "bytes never go back");
    }
}

void CheckUnplaced(const CodedText& coded, std::size_t units) {
    std::size_t end = 0;
    for (const CodedText::Stretch& stretch : coded.unplaced) {
        Expect(stretch.length > 0 && end <= stretch.start, "stretches come in order");
        end = stretch.start + stretch.length;
    }
    Expect(end <= units, "stretches are in the text");
}

void CheckView(const std::string& text, int type) {
    const UnicodeView view(text, type);
    CheckPositions(text, view);
    const CodedText back = UnicodeToDisplay(view.Text(), type);
    CheckUnplaced(back, view.Text().size());
    std::string expected = text;
    if (type != kDisplayANSI) {
        // A precomposed letter under a hook comes back taken apart.
        if (text.find(kHookAbove) != text.npos) return;
        std::ranges::replace(expected, kBlankForDiacritic, ' ');
    }
    Expect(!back.unplaced.empty() || back.text == expected, "what is shown comes back");
}

// Whatever a person types or pastes.
void CheckTyped(const std::u16string& typed) {
    const CodedText coded = UnicodeToQm(typed);
    CheckUnplaced(coded, typed.size());
    std::string marc = coded.text;
    CSZorbyToMARC(marc);
    const UnicodeView view(coded.text, kDisplaySIL);
    CheckPositions(coded.text, view);
    const bool isShown = coded.text.find(kHookAbove) != coded.text.npos ||
                         UnicodeToQm(view.Text()).text == coded.text;
    Expect(isShown, "what was typed is shown as it was typed");
    CheckUnplaced(UnicodeToDisplay(typed, kDisplayANSI), typed.size());
}

std::u16string Units(const std::string& bytes) {
    std::u16string units;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const unsigned low = static_cast<unsigned char>(bytes[i]);
        const unsigned high = static_cast<unsigned char>(bytes[i + 1]);
        units += static_cast<char16_t>(high << 8U | low);
    }
    return units;
}

}  // namespace
}  // namespace zorby

// The first byte says which display type; the rest is a text in one-byte codes, and one in UTF-16
// with the lower byte first.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace zorby;
    if (size == 0) return 0;
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    CheckView(text, data[0] % 2 == 0 ? kDisplaySIL : kDisplayANSI);
    CheckTyped(Units(text));
    return 0;
}

#include <quillory/text/QmText.h>
#include <quillory/text/Utf8.h>
#include <zorby/charset/UnicodeToQm.h>

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace quillory {
namespace {

std::u16string Utf16(std::string_view utf8) {
    std::u16string units;
    for (std::size_t at = 0; at < utf8.size();) {
        const Utf8Char character = DecodeUtf8(utf8.substr(at));
        units += static_cast<char16_t>(character.codePoint);
        at += character.size;
    }
    return units;
}

// The library takes characters apart by its own table, the host by utf8proc.
TEST(UnicodeToQm, TakesTheSameCharactersAsTheHost) {
    int held = 0;
    for (char32_t codePoint = 0x20; codePoint < 0xFFFE; ++codePoint) {
        if (codePoint >= 0xD800 && codePoint < 0xE000) continue;
        std::string utf8;
        AppendUtf8(codePoint, utf8);
        if (IsCombining(codePoint)) continue;  // not a letter of its own
        std::string qm;
        const std::string composed = Normalized(utf8, kNormalFormC);
        const bool isHeld = Utf8ToQm(composed, qm);
        for (const NormalForm form : {kNormalFormC, kNormalFormD}) {
            const zorby::CodedText coded = zorby::UnicodeToQm(Utf16(Normalized(utf8, form)));
            if (isHeld) {
                EXPECT_TRUE(coded.unplaced.empty()) << utf8 << " " << form;
                EXPECT_EQ(QmToUtf8(coded.text), composed) << utf8 << " " << form;
            } else if (coded.unplaced.empty()) {
                // A letter under a hook has no place on the host's fast road.
                EXPECT_EQ(coded.text.find('\xA2'), 0U) << utf8;
                EXPECT_EQ(QmToUtf8(coded.text), composed) << utf8;
            }
        }
        held += isHeld ? 1 : 0;
    }
    EXPECT_GT(held, 450);
}

// What has a place goes to MARC-8 and on to Unicode as the same text.
TEST(UnicodeToQm, PlacedTextSurvives) {
    std::mt19937 random(7);
    const std::u16string units =
        u"ae \u00E9\u0160\u1EA9\u1EDB\u0309\u0301\u030C\u0323\u2082\u00B2\u03B1\u0142\u0361\u031Bo";
    int survived = 0;
    for (int round = 0; round < 30'000; ++round) {
        std::string utf8 = "x";
        for (std::size_t left = random() % 7; left > 0; --left) {
            AppendUtf8(units[random() % units.size()], utf8);
        }
        const zorby::CodedText coded = zorby::UnicodeToQm(Utf16(utf8));
        if (!coded.unplaced.empty()) continue;
        ++survived;
        ASSERT_EQ(QmToUtf8(coded.text), Normalized(utf8, kNormalFormC)) << utf8;
    }
    EXPECT_GT(survived, 3'000);
}

}  // namespace
}  // namespace quillory

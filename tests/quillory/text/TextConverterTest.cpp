#include <quillory/text/CharacterReference.h>
#include <quillory/text/QmUnicode.h>
#include <quillory/text/TextConverter.h>
#include <quillory/text/Utf8Size.h>
#include <zorby/charset/Convert.h>
#include <zorby/charset/KeyTable.h>

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace quillory {
namespace {

std::string Convert(Charset from, Charset to, const std::string& text, Losses* losses = nullptr,
                    NormalForm form = kNormalFormC) {
    static std::map<std::tuple<Charset, Charset, NormalForm>, TextConverter> converters;
    const auto [converter, isNew] = converters.try_emplace({from, to, form}, from, to, form);
    Losses own;
    std::string out;
    converter->second.Append(text, out, losses != nullptr ? *losses : own);
    return out;
}

std::string ToUtf8(const std::string& marc8) {
    return Convert(kCharsetMarc8, kCharsetUtf8, marc8);
}
std::string ToMarc8(const std::string& utf8) {
    return Convert(kCharsetUtf8, kCharsetMarc8, utf8);
}

struct Twin {
    std::string marc8;
    std::string utf8;
};

const Twin kTwins[] = {
    {"", ""},
    {"plain", "plain"},
    {"\342ecole", "école"},
    {"x\xE2\343ay", "x\u00E1\u0302y"},  // two diacritics behind a letter
    {"Vi\xE3\342et", "Vi\u1EBFt"},      // and composed to one
    {"\340a", "\u1EA3"},                // hook above
    {"i\353t\354s", "it\u0361s"},       // ligature
    {"n\372n\373g", "nn\u0360g"},
    {"H\033b2\033sO", "H\u2082O"},
    {"x\x1Bp2\x1Bs", "x\u00B2"},
    {"H\033b2\033s\342e", "H\u2082é"},  // an accent straight behind a subscript
    {"\x1Bga\x1Bs-", "\u03B1-"},
    {"Stra\307e \3105", "Straße €5"},  // beyond the one-byte code
    {"\x1B$1!0!\x1B(B", "\u4E00"},
    {"a\x1B(NaB \x1B(Bz", "a\u0410\u0431 z"},
    {"tab\there", "tab\there"},
    {"\x88The \x89 End", "\u0098The \u009C End"},
    {"\xBC\xE2\xBC", "\u01A1\u1EDB"},  // o-hook, alone and with acute
    {"\xE2 ", " \u0301"},
    {"\x1B(S\xE2\141\x1B(2`\x1B(Bz", "\u03AC\u05D0z"},  // one set straight behind another
};

TEST(TextConverter, TwinsBothWays) {
    // An escape may stand between a diacritic and its letter, and before every blank.
    EXPECT_EQ(ToUtf8("\xE2\x1B(Sa\x1B(Bz"), "\u03ACz");
    EXPECT_EQ(ToUtf8("\x1B(Na\x1B(B \x1B(NB\x1B(B"), "\u0410 \u0431");
    for (const Twin& twin : kTwins) {
        EXPECT_EQ(ToUtf8(twin.marc8), twin.utf8) << testing::PrintToString(twin.marc8);
        EXPECT_EQ(ToMarc8(twin.utf8), twin.marc8) << twin.utf8;
        EXPECT_EQ(ToMarc8(Normalized(twin.utf8, kNormalFormD)), twin.marc8) << twin.utf8;
        EXPECT_EQ(Convert(kCharsetMarc8, kCharsetUtf8, twin.marc8, nullptr, kNormalFormD),
                  Normalized(twin.utf8, kNormalFormD))
            << twin.utf8;
    }
}

// All that the one-byte code holds, alone and under each diacritic, by the engine and by libyaz.
TEST(TextConverter, FastAndSlowRoadAgree) {
    const QmUnicode& fast = QmUnicode::Of(kNormalFormC);
    Marc8Unicode slow(kNormalFormC);
    int held = 0;
    int cameBack = 0;
    for (unsigned base = 0x20; base <= 0xFF; ++base) {
        for (unsigned mark = 0xA2; mark <= 0xBE; ++mark) {
            const bool marked = mark > 0xA2;
            const auto alphabet = zorby::KeyRecordOf(static_cast<unsigned char>(base)).alphabet;
            if (marked && alphabet != zorby::kAlphabetBasic) continue;
            std::string qm(1, static_cast<char>(base));
            if (marked) qm += static_cast<char>(mark);
            std::string utf8;
            if (!fast.AppendUtf8(qm, utf8)) continue;
            ++held;
            std::string marc8 = qm;
            zorby::CSZorbyToMARC(marc8);
            std::string slowUtf8;
            Losses losses;
            slow.AppendUtf8(marc8, slowUtf8, losses);
            EXPECT_EQ(utf8, slowUtf8) << std::hex << base << " " << mark;
            EXPECT_TRUE(losses.Empty()) << std::hex << base << " " << mark;
            EXPECT_EQ(ToUtf8(ToMarc8(utf8)), utf8) << std::hex << base << " " << mark;
            std::string back;
            if (!fast.AppendQm(utf8, back)) continue;
            ++cameBack;
            zorby::CSZorbyToMARC(back);
            EXPECT_EQ(back, marc8) << std::hex << base << " " << mark;
        }
    }
    EXPECT_GT(held, 24 * 130) << "the engine holds too little";
    EXPECT_GT(cameBack, held - 20);
}

TEST(TextConverter, CharactersThatMarc8HasNot) {
    const std::pair<std::string, std::string> kCases[] = {
        {"\U0001F600!", "&#x1F600;!"},
        {"a\u2013b", "a&#x2013;b"},
        {"see &#x41; there", "see &#x0026;#x41; there"},  // typed so
        {"AT&T &# &#x; &#xZZ;", "AT&T &# &#x; &#xZZ;"},
        {"\u20AB\u0302", "&#x20AB;&#x0302;"},
    };
    for (const auto& [utf8, marc8] : kCases) {
        SCOPED_TRACE(utf8);
        EXPECT_EQ(ToMarc8(utf8), marc8);
        EXPECT_EQ(ToUtf8(marc8), utf8);
    }
    EXPECT_EQ(ToUtf8("&#x1E; &#xD800; &#x110000; &#x1F;"), "&#x1E; &#xD800; &#x110000; &#x1F;");
}

TEST(TextConverter, LossesAreCounted) {
    struct Case {
        Charset from, to;
        std::string in, out, losses;
    };
    const Case kCases[] = {
        {kCharsetMarc8, kCharsetUtf8, "a\xAF\257b",
         "a\uFFFD\uFFFD"
         "b",
         "byte 0xAF is no character, written as U+FFFD: 2\n"},
        {kCharsetMarc8, kCharsetUtf8, "a\xE2", "a \u0301",
         "U+0301 has no letter to stand on, set on a blank: 1\n"},
        {kCharsetMarc8, kCharsetUtf8, "\354a", "\uFFFDa",
         "byte 0xEC is no character, written as U+FFFD: 1\n"},
        {kCharsetMarc8, kCharsetUtf8, "a\033zb", "a\uFFFDzb",
         "byte 0x1B is no character, written as U+FFFD: 1\n"},
        {kCharsetUtf8, kCharsetMarc8, "a\xFF\342b", "a&#xFFFD;&#xFFFD;b",
         "byte 0xE2 is no character, written as U+FFFD: 1\n"
         "byte 0xFF is no character, written as U+FFFD: 1\n"},
        {kCharsetUtf8, kCharsetMarc8, "\u263A\u263A", "&#x263A;&#x263A;",
         "U+263A (\u263A) is not in the character set, written as &#x263A;: 2\n"},
        {kCharsetUtf8, kCharsetMarc8, "H\x1BsO", "H&#x001B;sO",
         "byte 0x1B would be an escape of MARC-8, written as &#x001B;: 1\n"},
        {kCharsetUtf8, kCharsetMarc8, "\x01\u0327", "\x01&#x0327;",
         "U+0327 is not in the character set, written as &#x0327;: 1\n"},
        {kCharsetUtf8, kCharsetLatin1, "e\u0301 \u0142", "\xE9 &#x0142;",
         "U+0142 (\u0142) is not in the character set, written as &#x0142;: 1\n"},
        {kCharsetLatin1, kCharsetMarc8, "\xE9\xDF", "\342e\xC7", ""},
        {kCharsetLatin1, kCharsetUtf8, "\xE9 &#x0142;", "é \u0142", ""},
        {kCharsetMarc8, kCharsetLatin1, "\342e", "\xE9", ""},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(testing::PrintToString(c.in));
        Losses losses;
        EXPECT_EQ(Convert(c.from, c.to, c.in, &losses), c.out);
        EXPECT_EQ(losses.Text(""), c.losses);
    }
}

// Text of any script goes to MARC-8 and comes back, normalised and otherwise as it was.
TEST(TextConverter, Utf8ComesBackFromMarc8) {
    constexpr char32_t kRepertoire[] = {
        'a',   'E',   ' ',    '&',    '#',    'x',    ';',     0xE9,  0xDF,  0x142, 0x1A1, 0x301,
        0x308, 0x323, 0x361,  0x1EBF, 0x2082, 0xB2,   0x3B1,   0x3C9, 0x416, 0x439, 0x5D0, 0x5B8,
        0x627, 0x64B, 0x4E00, 0x3042, 0xAC00, 0x2013, 0x1F600, 0x98,  0x309, 0xF8,  0x131};
    std::mt19937 random(11);
    for (int round = 0; round < 4000; ++round) {
        std::string text = "o";
        for (std::size_t i = random() % 12; i > 0; --i) {
            AppendUtf8(kRepertoire[random() % std::size(kRepertoire)], text);
        }
        Losses losses;
        const std::string marc8 = Convert(kCharsetUtf8, kCharsetMarc8, text, &losses);
        EXPECT_FALSE(losses.Real()) << text;
        const std::string back = Convert(kCharsetMarc8, kCharsetUtf8, marc8, &losses);
        ASSERT_EQ(back, Normalized(text, kNormalFormC))
            << text << " by " << testing::PrintToString(marc8);
    }
}

// A lost byte in a run of three bytes a character does not spoil what follows the run.
TEST(TextConverter, ALostByteSpoilsNoMoreThanItsRun) {
    const std::string run = "!0!!0\"!0#!0$";  // four characters
    const std::string rest =
        "\x1B(B plain \xE2"
        "e";
    const std::string after = " plain \u00E9";
    const std::string escape = "\x1B$1";
    const std::string whole = escape + run + rest;
    for (std::size_t at = 0; at < run.size(); ++at) {
        SCOPED_TRACE(at);
        std::string lost = whole;
        lost.erase(escape.size() + at, 1);
        Losses losses;
        const std::string utf8 = Convert(kCharsetMarc8, kCharsetUtf8, lost, &losses);
        EXPECT_TRUE(utf8.ends_with(after)) << utf8;
        EXPECT_TRUE(losses.Real());
    }
    // An unknown character among whole ones takes none of them with it.
    EXPECT_EQ(ToUtf8("\x1B$1!0!~~~!0!" + rest), "\u4E00\uFFFD\u4E00" + after);
    // A byte too many is lost alone.
    EXPECT_EQ(ToUtf8("\x1B$1!0!z!0!" + rest), "\u4E00\uFFFD\u4E00" + after);
    EXPECT_EQ(ToUtf8("\x1B$1!0"), "\uFFFD\uFFFD");
    EXPECT_EQ(ToUtf8("\x1B$1!0!!\tx"), "\u4E00\uFFFD\t\uFFFD");
}

TEST(TextConverter, HalfMarksAreOneMarkInMarc8) {
    const std::pair<std::string, std::string> kCases[] = {
        {"t\uFE20s\uFE21", "\353t\354s"},
        {"e\u0301 t\uFE20s\uFE21 \u4E00", "\342e \353t\354s \x1B$1!0!\x1B(B"},
        {"n\uFE22g\uFE23 o\u0323", "\372n\373g \362o"},
        {"t\uFE20", "t&#xFE20;"},
        {"s\uFE21", "s&#xFE21;"},
    };
    for (const auto& [utf8, marc8] : kCases) {
        EXPECT_EQ(ToMarc8(utf8 + " \u263A").substr(0, marc8.size()), marc8) << utf8;
    }
    // Beside any letter with a mark.
    for (const char32_t letter : std::u32string_view(U"aeiouAEIOUncsz")) {
        for (char32_t mark = 0x300; mark <= 0x30C; ++mark) {
            std::string text;
            AppendUtf8(letter, text);
            AppendUtf8(mark, text);
            const std::string marc8 = ToMarc8(text + "i\uFE20a\uFE21");
            EXPECT_EQ(marc8.find("&#xFE2"), marc8.npos) << text << " " << marc8;
            EXPECT_EQ(ToUtf8(marc8), Normalized(text, kNormalFormC) + "i\u0361a") << text;
        }
    }
}

TEST(TextConverter, SetsOfTheCLibraryGoBothWays) {
    const std::tuple<std::string, std::string, std::string> kCases[] = {
        {"cp1252", "\x80 \xE9", "\u20AC \u00E9"},
        {"cp1250", "\xB3\xF3", "\u0142\u00F3"},
        {"CP1251", "\xCC\xE8\xF0", "\u041C\u0438\u0440"},
        {"iso-8859-2", "\xB3 &#x4E00;", "\u0142 \u4E00"},
        {"gbk", "\xD6\xD0", "\u4E2D"},
    };
    for (const auto& [name, bytes, utf8] : kCases) {
        SCOPED_TRACE(name);
        const auto charset = CharsetNamed(name);
        ASSERT_TRUE(charset.has_value());
        EXPECT_EQ(CharsetName(*charset), name);
        EXPECT_EQ(CharsetNamed(name), charset);
        EXPECT_EQ(LabelFor(*charset), ' ');
        EXPECT_EQ(Convert(*charset, kCharsetUtf8, bytes), utf8);
        EXPECT_EQ(Convert(kCharsetUtf8, *charset, Normalized(utf8, kNormalFormD)), bytes);
        EXPECT_EQ(Convert(*charset, *charset, bytes), bytes);
    }
    std::string bytes;
    std::string utf8;
    for (int i = 0; i < 999; ++i) {
        bytes += i % 9 == 0 ? "\x81" : "\x80\xE9";
        utf8 += i % 9 == 0 ? "\uFFFD" : "\u20AC\u00E9";
    }
    EXPECT_EQ(Convert(*CharsetNamed("cp1252"), kCharsetUtf8, bytes), utf8);
    Losses losses;
    EXPECT_EQ(Convert(*CharsetNamed("cp1252"), kCharsetUtf8, "a\x81z", &losses), "a\uFFFDz");
    EXPECT_EQ(losses.Text(""), "byte 0x81 is no character, written as U+FFFD: 1\n");
    EXPECT_EQ(CharsetNamed("UTF-8"), kCharsetUtf8);
    EXPECT_EQ(CharsetNamed("Latin-1"), kCharsetLatin1);
    EXPECT_EQ(CharsetNamed("MARC-8"), kCharsetMarc8);
    for (const std::string name : {"", "foo", "utf-16", "ebcdic-us", "cp1252//TRANSLIT"}) {
        EXPECT_EQ(CharsetNamed(name), std::nullopt) << name;
    }
}

TEST(TextConverter, AnyBytesGiveUtf8) {
    std::mt19937 random(12);
    constexpr unsigned char kBusy[] = {0x1B, 's',  'b', '$', '1',  '(', 'N',  '!', 'E', 0xE2,
                                       0xEB, 0xEC, 'a', '2', 0xAF, ')', 0x1F, '&', '#', 'x'};
    for (int round = 0; round < 20000; ++round) {
        std::string text(random() % 24, 'a');
        for (char& c : text) {
            c = static_cast<char>(round % 2 == 0 ? random() % 256 : kBusy[random() % 20]);
        }
        EXPECT_TRUE(IsValidUtf8(ToUtf8(text))) << testing::PrintToString(text);
        Convert(kCharsetUtf8, kCharsetMarc8, text);
        Convert(kCharsetLatin1, kCharsetMarc8, text);
    }
}

// What a reader has met before makes no difference.
TEST(TextConverter, Marc8ReadsTheSameEachTime) {
    constexpr std::string_view kBytes =
        "ae\xE2\xE8\xEB\xEC\xFA\xFB\xB2\xAF \n\x1B"
        "(NsB$1!";
    std::mt19937 random(5);
    Marc8Unicode known(kNormalFormC);
    for (int i = 0; i < 3000; ++i) {
        std::string text(random() % 9, ' ');
        for (char& c : text) c = kBytes[random() % kBytes.size()];
        std::string afresh;
        std::string again;
        Losses lostAfresh;
        Losses lostAgain;
        known.AppendUtf8(text, again, lostAgain);
        if (i % 10 != 0) continue;
        Marc8Unicode(kNormalFormC).AppendUtf8(text, afresh, lostAfresh);
        EXPECT_EQ(again, afresh) << text;
        EXPECT_EQ(lostAgain.First(kLossReplaced), lostAfresh.First(kLossReplaced)) << text;
        EXPECT_EQ(lostAgain.First(kLossNoLetter), lostAfresh.First(kLossNoLetter)) << text;
    }
}

TEST(Utf8, SizesAreThoseOfTheDecoder) {
    for (unsigned both = 0; both < 0x10000; ++both) {
        const std::string two{static_cast<char>(both >> 8), static_cast<char>(both & 0xFF)};
        for (const char* const rest :
             {"", "\x7F", "\x80", "\xBF", "\xBE\xC0", "\x80\xBF", "\xFF"}) {
            const std::string text = two + rest;
            const Utf8Char decoded = DecodeUtf8(text);
            ASSERT_EQ(Utf8Size(text), decoded.valid ? decoded.size : 0U)
                << testing::PrintToString(text);
            const bool isXml = decoded.valid && decoded.size > 1 && decoded.codePoint != 0xFFFE &&
                               decoded.codePoint != 0xFFFF;
            ASSERT_EQ(XmlCharacterSize(text), isXml ? decoded.size : 0U)
                << testing::PrintToString(text);
        }
    }
}

}  // namespace
}  // namespace quillory

#include <quillory/text/SearchText.h>
#include <quillory/text/Utf8.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <string>
#include <utility>

namespace quillory {
namespace {

TEST(SearchText, CaseAndDiacriticsGo) {
    const std::pair<const char*, const char*> kCases[] = {
        {"", ""},
        {"@AZ[ `az{ 09", "@az[ `az{ 09"},
        {"ZWÖLF Boxkämpfer", "zwolf boxkampfer"},
        {"e\u0301\u0323 ŁÓDŹ ŉ ǰ", "e łodz \u02BCn j"},
        {"Straße ſ \u1E9E", "strasse s ss"},
        {"ΟΔΟΣ Ёлка", "οδοσ елка"},
        {"\u212A\u00E9", "ke"},
        {"caf\xC3", "caf\xC3"},  // what is no UTF-8 stays
        {"\xC3\xA9 E \xFF", "\xC3\xA9 E \xFF"},
        {"\xC0\x80 A", "\xC0\x80 A"},
    };
    std::string again = "what was there before, and is longer than all of them";
    for (const auto& [text, folded] : kCases) {
        EXPECT_EQ(Folded(text), folded) << text;
        Fold(text, again);
        EXPECT_EQ(again, folded) << text;
    }
}

// As utf8proc has it, which knows all of Unicode.
std::string Reference(const std::string& text) {
    utf8proc_uint8_t* mapped = nullptr;
    const auto options =
        UTF8PROC_STABLE | UTF8PROC_COMPOSE | UTF8PROC_CASEFOLD | UTF8PROC_STRIPMARK;
    const utf8proc_ssize_t size =
        utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                     static_cast<utf8proc_ssize_t>(text.size()), &mapped,
                     static_cast<utf8proc_option_t>(options));
    std::string folded(reinterpret_cast<const char*>(mapped), static_cast<std::size_t>(size));
    std::free(mapped);
    return folded;
}

TEST(SearchText, EveryCharacterFoldsAsInUnicodeWhateverStandsBesideIt) {
    std::mt19937 random(4);
    for (int round = 0; round < 20'000; ++round) {
        std::string text;
        for (auto left = random() % 30; left > 0; --left) {
            const bool isAscii = random() % 3 != 0;
            const auto beyond = 1 + random() % (random() % 20 == 0 ? 0x3000 : 0x400);
            AppendUtf8(static_cast<char32_t>(isAscii ? 1 + random() % 0x7F : beyond), text);
        }
        ASSERT_EQ(Folded(text), Reference(text)) << testing::PrintToString(text);
    }
}

}  // namespace
}  // namespace quillory

#include <zorby/controlfields/MenuData.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstring>
#include <map>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <tests/zorby/controlfields/MenuFacts.h>
#include <vector>

namespace zorby {
namespace {

using Strings = std::vector<std::string>;

constexpr CFPart kBelowAllParts = static_cast<CFPart>(-2147483647 - 1);
constexpr CFPart kAboveAllParts = static_cast<CFPart>(2147483647);
constexpr int kSpareNumbers = 3000;  // the elements all have lower ones

Strings ItemsOf(CCFMenuData menu) {
    Strings items;
    for (const char* item = menu.GetTextFirst(); item != nullptr; item = menu.GetTextNext()) {
        items.emplace_back(item);
    }
    return items;
}

Strings ItemsOf(CFPart part) {
    return ItemsOf(CCFMenuData(part));
}

Strings LinesOf(const std::string& item) {
    Strings lines;
    for (std::size_t start = 0; start < item.size();) {
        const std::size_t end = item.find('\n', start);
        lines.push_back(item.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

// The codes (column 0) or texts (column 1).
Strings ColumnOf(CFPart part, std::size_t column) {
    Strings values;
    for (const std::string& item : ItemsOf(part)) values.push_back(LinesOf(item).at(column));
    return values;
}

int PositionOf(const std::string& value, const Strings& values) {
    return static_cast<int>(std::find(values.begin(), values.end(), value) - values.begin());
}

bool IsBefore(const std::string& left, const std::string& right) {
    return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(),
                                        [](char a, char b) {
                                            return std::tolower(static_cast<unsigned char>(a)) <
                                                   std::tolower(static_cast<unsigned char>(b));
                                        });
}

bool HasMark(const std::string& text, std::string_view mark) {
    return std::string_view(text).ends_with(mark);
}

TEST(MenuData, EachElementHasItsListAndNoOtherHasOne) {
    std::map<int, const MenuFacts*> expected;
    for (const MenuFacts& facts : kMenuFacts) {
        for (const CFPart part : facts.parts) expected[part] = &facts;
    }
    std::map<const char*, const MenuFacts*> menus;
    for (int number = -3; number < kSpareNumbers; ++number) {
        const CCFMenuData menu(static_cast<CFPart>(number));
        const auto facts = expected.find(number);
        ASSERT_EQ(menu.GetMenuTitle() != nullptr, facts != expected.end()) << number;
        if (facts == expected.end()) continue;
        EXPECT_EQ(menu.GetMenuTitle(), facts->second->title) << number;
        EXPECT_EQ(menu.GetCount(), facts->second->count) << number;
        const auto known = menus.emplace(menu.GetMenuText(), facts->second).first;
        EXPECT_EQ(known->second, facts->second) << number;  // one list behind one set of facts
    }
    EXPECT_EQ(expected.size(), 159u);
    EXPECT_EQ(menus.size(), 144u);
}

TEST(MenuData, ItemsHaveTheirLines) {
    const std::map<CFPart, std::size_t> widths{{CFP006MapProjection, 2},
                                               {CFP006MusicSoundFormOfComposition, 2},
                                               {CFP007RemoteSensingDataType, 2},
                                               {CFP008PlaceOfPublication, 3},
                                               {CFP008Language, 3}};
    Strings joined;
    for (const MenuFacts& facts : kMenuFacts) {
        const CFPart part = facts.parts.front();
        SCOPED_TRACE(part);
        const auto width = widths.contains(part) ? widths.at(part) : 1;
        const char* text = CCFMenuData(part).GetMenuText();
        for (const std::string& item : ItemsOf(part)) {
            const Strings lines = LinesOf(item);
            ASSERT_TRUE(item.ends_with('\n')) << item;
            EXPECT_EQ(lines[0].size(), width) << item;
            EXPECT_TRUE(!lines[1].empty() && lines[1].size() < 100) << item;
            EXPECT_TRUE(std::all_of(lines[1].begin(), lines[1].end(), [](char c) {
                return c >= ' ' && c <= '~';
            })) << item;
            const bool isJoined = lines.size() == 4;
            if (isJoined) joined.push_back(lines[0] + '|' + lines[2] + '|' + lines[3]);
            EXPECT_TRUE(isJoined || lines.size() == (part == CFPCombinedFormOfItem ? 3 : 2))
                << item;
            EXPECT_EQ(text, lines[1]) << item;
            text += std::strlen(text) + 1;
        }
        EXPECT_STREQ(text, "");
    }
    EXPECT_EQ(joined, (Strings{"smj|lun|Lunda", "nap|nep|Nepali",
                               "m|n|Surveys of literature in a subject area"}));
}

Strings CodesThatStandTwice(CFPart part) {
    std::set<std::string> seen;
    Strings twice;
    for (const std::string& code : ColumnOf(part, 0)) {
        if (!seen.insert(code).second) twice.push_back(code);
    }
    std::sort(twice.begin(), twice.end());
    return twice;
}

TEST(MenuData, CodesStandOnceButForTheToldOnes) {
    std::map<CFPart, Strings> twice{
        {CFP007ProjectedSMD, {"f"}},
        {CFP008PlaceOfPublication,
         {"aq ", "bn ", "cf ", "hm ", "iv ", "na ", "vb ", "xm ", "xx ", "xxc", "xxk", "xxu"}},
    };
    for (const MenuFacts& facts : kMenuFacts) {
        const CFPart part = facts.parts.front();
        if (part == CFP008Language || part == CFPCombinedFormOfItem) continue;
        EXPECT_EQ(CodesThatStandTwice(part), twice[part]) << facts.title;
    }
}

TEST(MenuData, TextsAreInOrder) {
    for (const MenuFacts& facts : kMenuFacts) {
        const CFPart part = facts.parts.front();
        Strings texts = ColumnOf(part, 1);
        if (part == CFPCombinedFormOfItem) continue;
        if (part == CFP008Language) texts = {texts.begin() + 90, texts.end() - 2};
        std::erase_if(texts, [](const std::string& text) { return text.starts_with("OCLC - "); });
        EXPECT_TRUE(std::is_sorted(texts.begin(), texts.end(), IsBefore)) << facts.title;
    }
}

// FNV-1a, 64 bits.
std::uint64_t DigestOf(const std::string& text) {
    std::uint64_t digest = 14695981039346656037u;
    for (const char c : text) digest = (digest ^ static_cast<unsigned char>(c)) * 1099511628211u;
    return digest;
}

// What the format says today is told apart from them.
TEST(MenuData, MenusAreThoseOfTheirDay) {
    std::string all;
    for (const MenuFacts& facts : kMenuFacts) {
        for (const std::string& item : ItemsOf(facts.parts.front())) all += item;
    }
    EXPECT_EQ(DigestOf(all), 16442338771229831473u)
        << "a code, a caption or an order has changed: see caption in data/marc21/README.md";
}

TEST(MenuData, LanguageIsInBlocks) {
    const Strings codes = ColumnOf(CFP008Language, 0);
    const Strings texts = ColumnOf(CFP008Language, 1);
    Strings added;
    Strings obsolete;
    for (std::size_t i = 0; i < codes.size(); ++i) {
        EXPECT_EQ(HasMark(texts[i], " (new in 2000)"), i >= 35 && i < 61) << codes[i];
        if (i >= 35 && i < 61) added.push_back(codes[i]);
        if (HasMark(texts[i], " (obsolete)")) obsolete.push_back(codes[i]);
    }
    std::sort(added.begin(), added.end());
    std::sort(obsolete.begin(), obsolete.end());
    EXPECT_EQ(obsolete.size(), 25u);
    EXPECT_TRUE(std::includes(added.begin(), added.end(), obsolete.begin(), obsolete.end()));
    EXPECT_EQ(CodesThatStandTwice(CFP008Language), obsolete);
    EXPECT_EQ((Strings{codes[0], codes[34], codes[35], codes[61]}),
              (Strings{"aar", "zha", "cam", "bis"}));
    EXPECT_EQ((Strings{codes[469], codes[470]}), (Strings{"zxx", "   "}));
}

TEST(MenuData, EncodingLevelHasSixMoreAfterNotApplicable) {
    const Strings codes = ColumnOf(CFPLdrEncodingLevel, 0);
    const auto z = codes.begin() + PositionOf("z", codes);
    EXPECT_EQ(Strings(z, z + 7), (Strings{"z", "i", "k", "l", "m", "e", "j"}));
}

struct Lookup {
    CFPart part;
    std::string code;
    std::string text;  // empty: not found
};

TEST(MenuData, CodesGiveTexts) {
    const std::vector<Lookup> lookups{
        {CFP006BooksIllustrations, "a", "Illustrations"},
        {CFP006BooksLiteraryForm, "c", "Comic strip (OBSOLETE)"},
        {CFP008PlaceOfPublication, "hk ", "Hong Kong (obsolete, use China)"},
        {CFP008PlaceOfPublication, "mh ", "Macao (obsolete, use China)"},
        {CFP008PlaceOfPublication, "cg ", "Zaire "},
        {CFP008Language, "nde", "Ndebele (Zimbabwe)  "},
        {CFP008Language, "cam", "Khmer (new in 2000)"},
        {CFP008Language, "cam\nKhmer (o", "Khmer (obsolete)"},
        {CFP008Language, "", "Afar"},
        {CFP008Language, "z", "Zhuang"},
        {CFP008Language, "smj", "Lule Sami"},
        {CFP008Language, "lun", ""},
        {CFP008Language, "nep", ""},
        {CFP008Language, "ENG", ""},
        {CFP008Language, "engx", ""},
        {CFP006ContinuingContents, "m", "Theses"},
        {CFP006ContinuingContents, "n", ""},
        {CFPCombinedFormOfItem, "ad", "Microfilm reel"},
        {CFPCombinedFormOfItem, "adz", "Microfilm reel"},
        {CFPCombinedFormOfItem, "a", "Aperture card"},
        {CFPCombinedFormOfItem, "f\n", "Braille"},
        {CFPCombinedFormOfItem, "f ", ""},
        {CFPCombinedFormOfItem, "ae", ""},
        {CFPCombinedFormOfItem, "", ""},
        {CFPCombinedFormOfItem, std::string("a\0", 2), ""},
    };
    for (const auto& [part, code, text] : lookups) {
        EXPECT_EQ(CCFMenuData(part).GetTextFromCode(code), text) << part << ' ' << code;
        std::string both = code;  // the code may lie in the text that is replaced
        CCFMenuData(part).GetTextFromCode(both, both);
        EXPECT_EQ(both, text) << part << ' ' << code;
    }
}

TEST(MenuData, CombinedCodesComeWithTheirSecondCharacter) {
    const CCFMenuData menu(CFPCombinedFormOfItem);
    const Strings items = ItemsOf(CFPCombinedFormOfItem);
    Strings codes;
    for (int index = 0; index < menu.GetCount(); ++index) {
        SCOPED_TRACE(index);
        std::string code;
        std::string padded;
        EXPECT_EQ(menu.GetCodeFromText(LinesOf(items[static_cast<std::size_t>(index)])[1], code),
                  1);
        EXPECT_EQ(menu.GetCodeFromIndex(index, padded), 1);
        EXPECT_EQ(padded, code.size() == 2 ? code : code + '\n');
        EXPECT_EQ(menu.GetIndexFromCode(padded), index);
        codes.push_back(code);
    }
    EXPECT_EQ(codes, (Strings{" ", "aa", "f", "s", "d", "ab", "ac", "ad", "aj", "ah", "be", "bf",
                              "cg", "o", "q", "az", "r"}));
}

// The first item that begins with the code, found the long way.
int FirstWithPrefix(const Strings& items, std::string_view code) {
    const auto found = std::find_if(items.begin(), items.end(), [&](const std::string& item) {
        return item.starts_with(code);
    });
    return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

void ExpectPrefixesFound(const CCFMenuData& menu, const Strings& items, std::string_view item) {
    for (std::size_t length = 0; length <= item.size(); ++length) {
        const std::string_view prefix = item.substr(0, length);
        ASSERT_EQ(menu.GetIndexFromCode(prefix), FirstWithPrefix(items, prefix)) << prefix;
        std::string changed(prefix);
        if (changed.empty()) continue;
        ++changed.back();
        ASSERT_EQ(menu.GetIndexFromCode(changed), FirstWithPrefix(items, changed)) << changed;
    }
}

TEST(MenuData, FindsTheFirstItemThatBeginsWithTheCode) {
    for (const MenuFacts& facts : kMenuFacts) {
        SCOPED_TRACE(facts.parts.front());
        if (facts.parts.front() == CFPCombinedFormOfItem) continue;
        const CCFMenuData menu(facts.parts.front());
        const Strings items = ItemsOf(menu);
        for (const std::string& item : items) ExpectPrefixesFound(menu, items, item);
    }
}

TEST(MenuData, AnyBytesAreACode) {
    std::mt19937 random(7);
    const CCFMenuData language(CFP008Language);
    const CCFMenuData form(CFPCombinedFormOfItem);
    const Strings items = ItemsOf(CFP008Language);
    for (int round = 0; round < 5000; ++round) {
        std::string code(random() % 6, '\0');
        for (char& byte : code) byte = static_cast<char>(random());
        EXPECT_EQ(language.GetIndexFromCode(code), FirstWithPrefix(items, code))
            << testing::PrintToString(code);
        EXPECT_LT(form.GetIndexFromCode(code), form.GetCount()) << testing::PrintToString(code);
    }
    EXPECT_EQ(language.GetIndexFromCode(std::string(100000, 'a')), -1);
    EXPECT_EQ(language.GetIndexFromCode(std::string_view("eng\0", 4)), -1);
    EXPECT_EQ(language.GetIndexFromCode({}), 0);
}

TEST(MenuData, TextsGiveTheCodeOfTheFirstItemWithThem) {
    for (const MenuFacts& facts : kMenuFacts) {
        const CFPart part = facts.parts.front();
        SCOPED_TRACE(part);
        if (part == CFPCombinedFormOfItem) continue;
        const CCFMenuData menu(part);
        const Strings codes = ColumnOf(part, 0);
        const Strings texts = ColumnOf(part, 1);
        for (std::size_t i = 0; i < texts.size(); ++i) {
            SCOPED_TRACE(texts[i]);
            std::string code;
            EXPECT_EQ(menu.GetCodeFromText(texts[i], code), 1);
            EXPECT_EQ(code, codes[static_cast<std::size_t>(PositionOf(texts[i], texts))]);
            EXPECT_EQ(menu.GetCodeFromIndex(static_cast<int>(i), code), 1);
            EXPECT_EQ(code, codes[i]);
        }
    }
}

TEST(MenuData, NoMatchLeavesTheCode) {
    const CCFMenuData language(CFP008Language);
    std::string code = "old";
    for (const std::string_view text : {"", "Afa", "Afar ", "afar", "Afar\n", "Lunda"}) {
        EXPECT_EQ(language.GetCodeFromText(text, code), 0) << text;
    }
    for (const int index : {-1, 471, -2147483647 - 1, 2147483647}) {
        EXPECT_EQ(language.GetCodeFromIndex(index, code), 0) << index;
    }
    EXPECT_EQ(code, "old");
}

TEST(MenuData, AnElementWithoutAListGivesNothing) {
    for (const CFPart part : {CFPLdrTypeOfRecord, CFPLdrCharacterCoding, CFP008DateEntered,
                              CFPEndOfTable, kBelowAllParts, kAboveAllParts}) {
        SCOPED_TRACE(part);
        CCFMenuData menu(part);
        std::string code = "old";
        EXPECT_EQ(menu.GetPart(), part);
        EXPECT_EQ(menu.GetMenuTitle(), nullptr);
        EXPECT_EQ(menu.GetMenuText(), nullptr);
        EXPECT_EQ(menu.GetCount(), 0);
        EXPECT_EQ(menu.GetTextFirst(), nullptr);
        EXPECT_EQ(menu.GetTextNext(), nullptr);
        EXPECT_EQ(menu.GetIndexFromCode(""), -1);
        EXPECT_EQ(menu.GetCodeFromIndex(0, code) + menu.GetCodeFromText("", code), 0);
        EXPECT_EQ(code, "old");
        menu.GetTextFromCode("a", code);
        EXPECT_EQ(code, "");
    }
}

TEST(MenuData, AWalkEndsOnceAndIsCopiedWhereItStands) {
    CCFMenuData menu(CFPLdrTypeOfControl);
    EXPECT_EQ(menu.GetTextNext(), nullptr);  // none under way
    EXPECT_STREQ(menu.GetTextFirst(), "a\nArchival\n");
    CCFMenuData copy(CFP008Language);
    copy = menu;
    EXPECT_STREQ(copy.GetTextNext(), " \nNo specified type\n");
    EXPECT_EQ(copy.GetTextNext(), nullptr);
    EXPECT_EQ(copy.GetTextNext(), nullptr);
    EXPECT_STREQ(menu.GetTextNext(), " \nNo specified type\n");
    EXPECT_STREQ(menu.GetTextFirst(), "a\nArchival\n");
}

TEST(MenuData, ByteZeroCountsOnDemand) {
    EXPECT_TRUE(CCFMenuData::PartNumberInRange(0, CFP006BooksTypeOfRecord, CF006Books));
    EXPECT_FALSE(CCFMenuData::PartNumberInRange(1, CFP006BooksTypeOfRecord, CF006Books));
    EXPECT_TRUE(CCFMenuData::PartNumberInRange(1, CFP006BooksIllustrations, CF006Books));
    EXPECT_TRUE(CCFMenuData::PartNumberInRange(1, CFP007MapCategory, CF007Map));
    EXPECT_FALSE(CCFMenuData::PartNumberInRange(0, CFP007MapCategory, CF007Globe));
}

}  // namespace
}  // namespace zorby

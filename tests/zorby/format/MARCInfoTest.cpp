#include <zorby/format/MARCInfo.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace zorby {
namespace {

CMARCInfo MenuOf(const std::vector<std::string>& texts) {
    CMARCInfo menu(1, 4, static_cast<int>(texts.size()));
    for (std::int32_t i = 0; i < menu.GetSize(); ++i) {
        menu.SetElement(i, &i, texts[static_cast<std::size_t>(i)]);
    }
    return menu;
}

using Element = std::pair<std::int32_t, std::string>;

std::vector<Element> ElementsOf(const CMARCInfo& menu) {
    std::vector<Element> elements;
    for (int i = 0; i < menu.GetSize(); ++i) {
        auto& [code, text] = elements.emplace_back();
        menu.GetCodeAt(i, &code);
        menu.GetStringAt(i, text);
    }
    return elements;
}

std::vector<std::string> Sorted(const std::vector<std::string>& texts) {
    CMARCInfo menu = MenuOf(texts);
    menu.Sort();
    std::vector<std::string> sorted;
    for (const auto& [code, text] : ElementsOf(menu)) {
        EXPECT_EQ(text, texts[static_cast<std::size_t>(code)]) << code;
        sorted.push_back(text);
    }
    return sorted;
}

TEST(MARCInfo, UnsetElementsAndOthersOutsideAreBars) {
    CMARCInfo letters(0, 1, 2);
    CMARCInfo wide(0, 3, 1);
    CMARCInfo tags(5, 1, 1);
    for (const int index : {-1, 0, 1, 2, 2147483647}) {
        SCOPED_TRACE(index);
        char code[4] = "xyz";
        letters.GetCodeAt(index, code);
        EXPECT_STREQ(code, "|yz");
        wide.GetCodeAt(index, code);
        EXPECT_STREQ(code, "|||");
    }
    std::int32_t tag = 1;
    tags.GetCodeAt(0, &tag);
    EXPECT_EQ(tag, 0x7C7C7C7C);
    tags.GetCodeAt(1, &tag);
    EXPECT_EQ(tag, 0);
}

TEST(MARCInfo, SettingOutsideDoesNothing) {
    CMARCInfo menu = MenuOf({"one"});
    const std::int32_t code = 9;
    for (const int index : {-1, 1, 2147483647}) {
        menu.SetElement(index, &code, "other");
        std::string text = "kept";
        menu.GetStringAt(index, text);
        EXPECT_EQ(text, "kept") << index;
    }
    EXPECT_EQ(ElementsOf(menu), std::vector<Element>({{0, "one"}}));
    EXPECT_EQ(CMARCInfo(0, -1, -1).GetSize(), 0);
}

TEST(MARCInfo, FirstElementThatBeginsWithTheTextIsFound) {
    const CMARCInfo menu = MenuOf({"$a (Title)", "$b (Rest)", "$b (Rest of title)"});
    const std::vector<std::pair<std::string, std::int32_t>> found = {
        {"", 0}, {"$b", 1}, {"$b (Rest o", 2}, {"$a (Title)", 0}};
    for (const auto& [text, expected] : found) {
        std::int32_t code = -1;
        EXPECT_EQ(menu.GetCodeFromString(text, &code), 1) << text;
        EXPECT_EQ(code, expected) << text;
    }
    std::int32_t code = -1;
    EXPECT_EQ(menu.GetCodeFromString("$a (Title) ", &code), 0);
    EXPECT_EQ(menu.GetCodeFromString("(Title)", &code), 0);
    EXPECT_EQ(code, -1);
}

TEST(MARCInfo, SortsDigitsBehindTheRest) {
    using Texts = std::vector<std::string>;
    EXPECT_EQ(Sorted({"$2 (Source)", "$b (Rest)", "$0 (Link)", "$a (Title)"}),
              (Texts{"$a (Title)", "$b (Rest)", "$0 (Link)", "$2 (Source)"}));
    EXPECT_EQ(Sorted({"245 (Title)", "Title (245)", "100", "", "\xE9t\xE9", "Note"}),
              (Texts{"", "Note", "Title (245)", "\xE9t\xE9", "100", "245 (Title)"}));
    EXPECT_EQ(Sorted({"1", "%", "$1", "$x", "#", "$"}), (Texts{"#", "$", "$x", "$1", "%", "1"}));
}

// The plain form of the rule: exchange whole elements, position by position.
std::vector<Element> ExchangeSorted(std::vector<Element> elements) {
    const auto digit = [](const std::string& text, std::size_t at) {
        return at < text.size() && text[at] >= '0' && text[at] <= '9';
    };
    for (std::size_t i = 0; i < elements.size(); ++i) {
        for (std::size_t j = i + 1; j < elements.size(); ++j) {
            const std::string& ti = elements[i].second;
            const std::string& tj = elements[j].second;
            const std::size_t at = ti.substr(0, 1) == "$" && tj.substr(0, 1) == "$" ? 1 : 0;
            const bool swap = digit(ti, at) == digit(tj, at) ? tj.compare(ti) < 0 : digit(ti, at);
            if (swap) std::swap(elements[i], elements[j]);
        }
    }
    return elements;
}

TEST(MARCInfo, EqualTextsEndInTheOrderThatExchangingLeaves) {
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        std::vector<std::string> texts(random() % 40);
        for (std::string& text : texts) {
            for (std::size_t left = random() % 3; left > 0; --left) text += "$1a\xE9"[random() % 4];
        }
        CMARCInfo menu = MenuOf(texts);
        const std::vector<Element> expected = ExchangeSorted(ElementsOf(menu));
        menu.Sort();
        EXPECT_EQ(ElementsOf(menu), expected) << round;
    }
}

}  // namespace
}  // namespace zorby

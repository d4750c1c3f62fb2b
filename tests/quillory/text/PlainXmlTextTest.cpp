#include <quillory/text/PlainXmlText.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {
namespace {

using namespace std::string_view_literals;

std::size_t PlainSize(std::string_view text) {
    constexpr std::string_view kSigns = "<>&\"";
    const auto misfit = std::ranges::find_if(text, [&](char c) {
        return c < ' ' || static_cast<unsigned char>(c) >= 0x80 || kSigns.find(c) != kSigns.npos;
    });
    return static_cast<std::size_t>(misfit - text.begin());
}

// Texts of all sizes about those of blocks and words, each in memory of just its size.
TEST(PlainXmlText, EndsBeforeTheFirstMisfit) {
    std::mt19937 random(3);
    TextBuilder out;
    for (int round = 0; round < 20000; ++round) {
        std::string text(random() % 100, '.');
        for (char& c : text) c = static_cast<char>(' ' + random() % 2 * ('~' - ' '));
        for (std::size_t times = random() % 4; times > 0 && !text.empty(); --times) {
            text[random() % text.size()] = static_cast<char>(random());
        }
        const std::vector<char> bytes(text.begin(), text.end());
        out.Clear();
        out += "before"sv;
        const std::size_t size = AppendPlainXml({bytes.data(), bytes.size()}, out);
        ASSERT_EQ(size, PlainSize(text)) << testing::PrintToString(text);
        ASSERT_EQ(out.Text(), "before" + text.substr(0, size));
    }
}

}  // namespace
}  // namespace quillory

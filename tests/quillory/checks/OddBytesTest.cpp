#include <quillory/checks/OddBytes.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace quillory {
namespace {

bool IsOdd(char c) {
    return c < 0x20 || c > 0x7E;
}

std::string RandomBytes(std::mt19937& random, std::size_t size) {
    std::string bytes(size, 'x');
    for (char& byte : bytes) {
        if (random() % 3 == 0) byte = static_cast<char>(random());
    }
    return bytes;
}

// A letter for each byte of a text.
std::string Kinds(OddBytes& odd, std::string_view text) {
    std::string kinds(text.size(), 'p');
    const char* const end = text.data() + text.size();
    OddBytes::Cursor cursor = odd.In(text);
    for (const char* at = cursor.Next(); at != end; at = cursor.Next()) {
        kinds.at(static_cast<std::size_t>(at - text.data())) = 'o';
    }
    return kinds;
}

std::string KindsOneByOne(std::string_view text) {
    std::string kinds;
    for (const char c : text) kinds += IsOdd(c) ? 'o' : 'p';
    return kinds;
}

TEST(OddBytes, AreAllButPrintableAscii) {
    OddBytes odd;
    odd.Begin({});
    EXPECT_EQ(Kinds(odd, "\x1F\x20~\x7F\x80\xFF"), "oppooo");
    EXPECT_EQ(Kinds(odd, ""), "");
    EXPECT_EQ(Kinds(odd, {}), "");
}

// Of any size, whether or not the record is in one piece, and in any order.
TEST(OddBytes, AreFoundInEachText) {
    std::mt19937 random(7);
    OddBytes odd;
    for (std::size_t size = 0; size < 300; ++size) {
        const std::string record = RandomBytes(random, size);
        const std::string other = RandomBytes(random, size);
        odd.Begin(size % 3 == 0 ? std::string_view() : record);
        std::size_t begin = 0;
        for (int i = 0; i < 20; ++i) {
            begin = i < 10 ? std::min(size, begin + random() % 9) : random() % (size + 1);
            const std::string_view text(random() % 8 == 0 ? other : record);
            const std::string_view part = text.substr(begin, random() % 80);
            ASSERT_EQ(Kinds(odd, part), KindsOneByOne(part)) << size << " bytes, text " << i;
        }
    }
}

TEST(OddBytes, AreFoundAgainInTheNextRecord) {
    OddBytes odd;
    std::string bytes =
        "a\x1F"
        "b";
    for (const char* expected : {"pop", "ppp"}) {
        odd.Begin(bytes);
        EXPECT_EQ(Kinds(odd, bytes), expected);
        bytes = "aab";
    }
}

}  // namespace
}  // namespace quillory

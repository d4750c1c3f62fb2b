#include <quillory/checks/ByteBlock.h>

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace quillory {
namespace {

// A letter for each byte of a text, as the blocks have it.
std::string Kinds(std::string_view text) {
    std::string kinds(text.size(), '?');
    ForEachBlock(text, [&kinds](const ByteBlock& block, std::size_t at, BlockBits fresh) {
        for (std::size_t i = 0; i < ByteBlock::kSize; ++i) {
            const BlockBits bit = BlockBits{1} << i;
            if ((fresh & bit) == 0) continue;
            char& kind = kinds.at(at + i);
            EXPECT_EQ(kind, '?') << "byte " << at + i << " came twice";
            kind = (block.NotPlain() & bit) == 0 ? 'p' : 'o';
            if ((block.Equal('\x1F') & bit) != 0) kind = 'd';
        }
    });
    return kinds;
}

TEST(ByteBlock, EachByteIsLookedAtOnce) {
    std::mt19937 random(7);
    for (std::size_t size = 0; size < 70; ++size) {
        std::string text;
        std::string kinds;
        for (std::size_t i = 0; i < size; ++i) {
            const auto byte = static_cast<unsigned char>(random() % 4 == 0 ? 0x1F : random());
            text += static_cast<char>(byte);
            kinds += byte == 0x1F ? 'd' : byte < 0x20 || byte > 0x7E ? 'o' : 'p';
        }
        EXPECT_EQ(Kinds(text), kinds) << size << " bytes";
    }
}

TEST(ByteBlock, PlainEndsWithTheTilde) {
    EXPECT_EQ(Kinds("\x1F\x20~\x7F\x80\xFF"), "dppooo");
}

}  // namespace
}  // namespace quillory

#include <quillory/sets/ExternalSort.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace quillory {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

// Keys of all bytes, many of them equal, a few very long; each payload tells its place.
Pairs RandomPairs(std::size_t count) {
    std::mt19937 random(17);
    Pairs pairs;
    for (std::size_t i = 0; i < count; ++i) {
        std::string key;
        const std::size_t size = i % 97 == 0 ? 10000 : random() % 11;
        for (std::size_t k = 0; k < size; ++k) key += static_cast<char>(random() % 3 * 127);
        pairs.emplace_back(std::move(key), std::to_string(i) + std::string(random() % 40, 'x'));
    }
    return pairs;
}

Pairs Sorted(const Pairs& pairs, std::size_t memory) {
    ExternalSort sort(memory);
    for (const auto& [key, payload] : pairs) sort.Add(key, payload);
    EXPECT_EQ(sort.Count(), pairs.size());
    Pairs sorted;
    sort.ForEach([&sorted](std::string_view key, std::string_view payload) {
        sorted.emplace_back(key, payload);
    });
    return sorted;
}

TEST(ExternalSort, AgreesWithAStableSortWhateverTheMemory) {
    const Pairs pairs = RandomPairs(3000);
    Pairs expected = pairs;
    std::ranges::stable_sort(expected,
                             [](const auto& a, const auto& b) { return a.first < b.first; });
    for (const std::size_t memory : {1U, 300U, 5000U, 60000U, 100U << 20}) {
        EXPECT_TRUE(Sorted(pairs, memory) == expected) << memory << " bytes";
    }
}

// Of entries that are smaller than what is noted of them, as of others.
TEST(ExternalSort, MemoryIsFullAsSeldomAsItCanBe) {
    for (const std::size_t size : {2U, 2000U}) {
        ExternalSort sort(std::size_t{1} << 20);
        const std::string payload(size, 'x');
        const std::size_t count = (std::size_t{10} << 20) / (size + 50);
        for (std::size_t i = 0; i < count; ++i) sort.Add(std::to_string(i * 7919 % count), payload);
        EXPECT_GE(sort.Spills(), 8U) << size;
        EXPECT_LE(sort.Spills(), 40U) << size;
    }
}

TEST(ExternalSort, OfNothingIsNothing) {
    EXPECT_EQ(Sorted({}, 1), Pairs{});
    EXPECT_EQ(Sorted({{"", ""}}, 1), (Pairs{{"", ""}}));
}

// The system's folder stands in for it.
TEST(ExternalSort, AFolderForTemporaryFilesThatIsNotThereIsNoHindrance) {
    const char* before = std::getenv("TMPDIR");
    const std::string kept = before == nullptr ? "" : before;
    setenv("TMPDIR", "/dev/null/none", 1);
    ExternalSort sort(1);
    sort.Add("b", "");
    EXPECT_NO_THROW(sort.Add("a", ""));
    before == nullptr ? unsetenv("TMPDIR") : setenv("TMPDIR", kept.c_str(), 1);
}

}  // namespace
}  // namespace quillory

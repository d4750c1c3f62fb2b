#include <quillory/jobs/RepeatedNumbers.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace quillory {
namespace {

// Index of the record, which of its numbers, and index and place of the first one with it.
using Found = std::tuple<std::uint64_t, std::uint64_t, std::uint64_t, std::uint64_t>;

TEST(RepeatedNumbers, AreFoundWhateverMemoryHolds) {
    for (const std::size_t memory : {std::size_t{1}, std::size_t{4096}, std::size_t{1} << 24}) {
        SCOPED_TRACE(memory);
        std::mt19937 random(7);
        RepeatedNumbers numbers(memory);
        std::map<std::string, std::uint64_t> firsts;
        std::vector<Found> expected;
        for (std::uint64_t record = 0; record < 3000; ++record) {
            for (std::uint64_t which = 0; which < random() % 4; ++which) {
                const std::string number = std::to_string(random() % 2500);
                numbers.Add(number, {record, record / 100, record % 100 + 1}, which);
                const std::uint64_t first = firsts.emplace(number, record).first->second;
                if (first != record) expected.emplace_back(record, which, first, first % 100 + 1);
            }
        }
        std::vector<Found> found;
        numbers.ForEach([&found](const RepeatedNumbers::Match& match) {
            EXPECT_EQ(match.first.file, match.first.index / 100);
            found.emplace_back(match.index, match.which, match.first.index, match.first.number);
        });
        EXPECT_TRUE(std::ranges::is_sorted(found, {}, [](const Found& one) {
            return std::get<0>(one);
        })) << "in the order of records";
        std::ranges::sort(found);
        EXPECT_EQ(found, expected);
    }
}

TEST(RepeatedNumbers, OfOneRecordAreNone) {
    RepeatedNumbers numbers(1 << 20);
    numbers.Add("1", {0, 0, 1}, 0);
    numbers.Add("1", {0, 0, 1}, 1);
    numbers.Add("", {1, 0, 2}, 0);
    numbers.ForEach([](const RepeatedNumbers::Match&) { ADD_FAILURE(); });
}

}  // namespace
}  // namespace quillory

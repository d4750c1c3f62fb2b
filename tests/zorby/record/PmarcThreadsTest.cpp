#include <zorby/record/Pmarc.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

using namespace zorby;

namespace {

constexpr int kFields = 300;

// All that const operations say of a record.
std::vector<int> Indices(const CPmarc& record) {
    std::vector<int> indices;
    for (int occurrence = 1; occurrence <= kFields + 1; ++occurrence) {
        indices.push_back(record.FieldGetIndexForTagOccurance(650, occurrence));
        indices.push_back(record.FieldExists(500, occurrence));
    }
    std::string bytes;
    record.ConvertToUSMARCCommFormat(bytes);
    indices.push_back(static_cast<int>(bytes.size()));
    return indices;
}

TEST(PmarcThreads, ReadOneRecordTogether) {
    CPmarc record;
    for (int i = 0; i < kFields; ++i) {
        record.AstaAdd(650, ' ', '0', 'a', 1, std::to_string(i));
        record.AstaAdd(500, ' ', ' ', 'a', 1, std::to_string(i));
    }
    const std::vector<int> alone = Indices(record);
    EXPECT_EQ(alone[2 * kFields], -1);
    std::vector<std::vector<int>> together(2);
    std::vector<std::thread> threads;
    threads.reserve(together.size());
    for (auto& indices : together) {
        threads.emplace_back([&record, &indices] { indices = Indices(record); });
    }
    for (std::thread& thread : threads) thread.join();
    for (const auto& indices : together) EXPECT_EQ(indices, alone);
}

}  // namespace

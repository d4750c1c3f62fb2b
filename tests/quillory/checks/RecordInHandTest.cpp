#include <quillory/checks/RecordInHand.h>

#include <gtest/gtest.h>

#include <random>
#include <tests/quillory/Records.h>

namespace quillory {
namespace {

// As a walk over all fields would find them.
TEST(RecordInHand, FieldsOfSomeTagsInTheOrderOfTheRecord) {
    const FieldRules rules(std::vector<FieldRule>(kTags), false);
    RecordInHand record(rules);
    std::mt19937 random(1);
    for (int round = 0; round < 500; ++round) {
        TestRecord test({}, '$');
        const std::uint32_t count = random() % 8;
        for (std::uint32_t i = 0; i < count; ++i) {
            constexpr const char* kTagsMet[] = {"035", "245", "500", "504", "9X9"};
            test.Add(std::string(kTagsMet[random() % 5]) + "  $a" + std::to_string(i));
        }
        record.Take(test.record);
        std::string expected;
        for (const CheckedField& field : record.Fields()) {
            const bool isMeant = field.number == 35 || field.number == 500 || field.number == 504;
            if (isMeant) expected += record.TextOf(field, 'a');
        }
        std::string found;
        record.ForEachOf({500, 504, 35, 700},
                         [&](const CheckedField& field) { found += record.TextOf(field, 'a'); });
        EXPECT_EQ(found, expected);
    }
}

}  // namespace
}  // namespace quillory

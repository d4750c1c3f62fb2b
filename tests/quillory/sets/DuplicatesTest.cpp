#include <quillory/sets/Duplicates.h>

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace quillory {
namespace {

using Keys = std::vector<std::string>;

std::string Removed(const std::vector<Keys>& records, Keep keep) {
    Duplicates duplicates(keep, 1 << 20);
    std::uint64_t fullness = 0;
    for (const Keys& keys : records) duplicates.Add(keys, fullness++ % 3);
    std::string text;
    for (const auto& match : duplicates.Find()) {
        text += std::to_string(match.record) + "<" + std::to_string(match.kept) + " " +
                duplicates.KeyOf(match) + "; ";
    }
    return text;
}

TEST(Duplicates, GoWithARecordThatIsKept) {
    const std::vector<Keys> records{{"a"}, {"b"}, {"a", "b"}, {}, {"b", "c"}, {"c"}, {}};
    EXPECT_EQ(Removed(records, Keep::First), "2<0 a; 4<1 b; ");
    EXPECT_EQ(Removed(records, Keep::Last), "0<2 a; 1<2 b; 4<5 c; ");
    EXPECT_EQ(Removed(records, Keep::Fullest), "0<2 a; 1<2 b; 4<2 b; ");
    EXPECT_EQ(Removed({}, Keep::First), "");
}

TEST(Duplicates, OfRandomRecordsNoTwoThatAreKeptShareAKey) {
    std::mt19937 random(11);
    for (const Keep keep : {Keep::First, Keep::Last, Keep::Fullest}) {
        SCOPED_TRACE(static_cast<int>(keep));
        std::vector<std::set<std::string>> records(2000);
        Duplicates duplicates(keep, 2000);
        for (auto& keys : records) {
            for (unsigned i = random() % 4; i > 0; --i) {
                keys.insert(std::to_string(random() % 1500) + std::string(random() % 2 * 30, 'x'));
            }
            duplicates.Add({keys.begin(), keys.end()}, random() % 5);
        }
        std::set<Duplicates::Index> gone;
        const auto matches = duplicates.Find();
        for (const auto& match : matches) gone.insert(match.record);
        EXPECT_EQ(gone.size(), matches.size());
        for (const auto& match : matches) {
            const std::string key = duplicates.KeyOf(match);
            EXPECT_TRUE(records[match.record].contains(key)) << match.record;
            EXPECT_TRUE(records[match.kept].contains(key)) << match.record;
            EXPECT_FALSE(gone.contains(match.kept)) << match.record;
        }
        std::set<std::string> seen;
        for (Duplicates::Index i = 0; i < records.size(); ++i) {
            if (gone.contains(i)) continue;
            for (const std::string& key : records[i]) EXPECT_TRUE(seen.insert(key).second) << i;
        }
    }
}

}  // namespace
}  // namespace quillory

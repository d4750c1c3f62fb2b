#include <tests/quillory/holdings/HoldingsFixture.h>

namespace quillory {
namespace {

using HoldingsSystemTest = HoldingsFixture;

// The source of a system in data/holdings and its row in the library's table go together.
TEST_F(HoldingsSystemTest, TheDictionaryHasWhatTheTableNames) {
    for (const zorby::HoldingsTypeRow& row : zorby::HoldingsTypeTable()) {
        SCOPED_TRACE(row.type);
        const auto* type = zorby::CInfoAboutHoldingsTypeList::FindFromType(row.type);
        ASSERT_NE(type, nullptr);
        EXPECT_EQ(type->GetSize() == 0, row.tagsWithoutElements != nullptr);
        for (int i = 0; i < type->GetSize(); ++i) {
            const zorby::CInfoAboutHoldingsField& info = *type->GetAt(i);
            EXPECT_TRUE(row.Has(info.GetHoldingsID())) << info.GetName();
            const int place = static_cast<unsigned char>(info.GetSubfield());
            if (place >= ' ') continue;
            ASSERT_NE(row.composite, nullptr) << info.GetName();
            EXPECT_NE(row.composite->lead(place), "") << info.GetName();
        }
        for (const zorby::EHOLDINGSID id :
             {row.barCode, row.callNumber.Whole(), row.automatic, row.label.id, row.pair.second}) {
            EXPECT_TRUE(id == zorby::EHOLDINGSID{} || type->GetFieldInfo(id) != nullptr) << id;
        }
    }
}

TEST_F(HoldingsSystemTest, IsFoundByAnyNameAndByNumber) {
    const std::pair<const char*, int> cases[] = {
        {"Follett", 3}, {"Follett, first release", 3},
        {"3", 3},       {"003", 3},
        {"follett", 0}, {"0", 0},
        {"99", 0},      {"", 0},
        {"-3", 0},      {"3333", 0},
    };
    for (const auto& [name, number] : cases) {
        const zorby::CInfoAboutHoldingsType* type = FindHoldingsType(name);
        EXPECT_EQ(type == nullptr ? 0 : type->GetHoldingsTypeID(), number) << name;
    }
}

}  // namespace
}  // namespace quillory

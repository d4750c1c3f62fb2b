#include <zorby/layouts/GlobalEditing.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <new>
#include <set>
#include <thread>
#include <vector>

using namespace zorby;

namespace {

using List = CCFGlobalEditingEntryArray;

// Addresses that stand for the workforms of the materials.
const CTemplate* WorkformOf(MaterialType material) {
    static const std::array<char, kLastMaterialType + 1> places = {};
    return reinterpret_cast<const CTemplate*>(&places.at(static_cast<std::size_t>(material)));
}

constexpr CCFDialogLayout RowOf(int part) {
    return {1, "Label:", static_cast<CFPart>(part), CFControlCombo, {}, {}};
}

int Compare(int first, int second) {
    const CCFDialogLayout firstRow = RowOf(first);
    const CCFDialogLayout secondRow = RowOf(second);
    return CCFGlobalEditingEntry::CCFGlobalEditingEntryCompare({firstRow, nullptr},
                                                               {secondRow, nullptr});
}

class GlobalEditing : public testing::Test {
protected:
    ~GlobalEditing() override { List::DestroyYourself(); }

    static std::multiset<const CTemplate*> WorkformsWith(CFPart part) {
        std::multiset<const CTemplate*> workforms;
        for (int i = 0; i < List::GetSize(); ++i) {
            if (List::GetAt(i)->GetRow().part == part) {
                workforms.insert(List::GetAt(i)->GetTemplate());
            }
        }
        return workforms;
    }
};

std::multiset<const CTemplate*> Workforms(const std::vector<MaterialType>& materials) {
    std::multiset<const CTemplate*> workforms;
    for (const MaterialType material : materials) workforms.insert(WorkformOf(material));
    return workforms;
}

std::vector<MaterialType> MainMaterials() {
    std::vector<MaterialType> materials;
    for (int i = kFirstMaterialType; i <= kLastMaterialType; ++i) {
        if (i != 23 && i != 24 && i != 26 && i != 27) {
            materials.push_back(static_cast<MaterialType>(i));
        }
    }
    return materials;
}

}  // namespace

TEST(GlobalEditingOrder, WithoutMenusByNumberUnevenly) {
    EXPECT_EQ(Compare(15, 15), 0);
    for (const int difference : {1, 2, 3}) {
        EXPECT_EQ(Compare(12 + difference, 12), 0) << difference;
        EXPECT_EQ(Compare(12, 12 + difference), -1) << difference;
    }
    EXPECT_EQ(Compare(19, 15), 1);
    EXPECT_EQ(Compare(15, 19), -1);
    EXPECT_EQ(Compare(14, 19), -2);
    EXPECT_EQ(Compare(CFP007MicroformReductionRatio, CFP008DateGroup), (1406 - 102) >> 2);
}

TEST(GlobalEditingOrder, ByMenu) {
    EXPECT_LT(Compare(CFP007MicroformReductionRatio, CFP008PlaceOfPublication), 0);
    EXPECT_GT(Compare(CFP008PlaceOfPublication, CFP007MicroformReductionRatio), 0);
    // Elements of one menu
    EXPECT_EQ(Compare(CFP006BooksGovernment, CFP006VisualGovernment), 0);
    EXPECT_EQ(Compare(CFP006VisualFormOfItem, CFP006MusicSoundFormOfItem), 0);
    const std::vector<int> ascending = {
        106,  107,  103,  2,   8,   18,   108, 804,  805, 2601, 402,  301,  602,  311,
        711,  310,  309,  507, 308, 405,  403, 501,  508, 506,  2207, 2209, 2208, 1202,
        1203, 1105, 1102, 608, 6,   1702, 702, 1712, 809, 2005, 2010, 2403, 2406, 2405};
    for (std::size_t i = 1; i < ascending.size(); ++i) {
        EXPECT_LT(Compare(ascending[i - 1], ascending[i]), 0) << ascending[i];
        EXPECT_GT(Compare(ascending[i], ascending[i - 1]), 0) << ascending[i];
    }
}

TEST_F(GlobalEditing, HoldsTheElementsOfAllFullForms) {
    ASSERT_EQ(List::InitializeFrom(WorkformOf), 0);
    std::multiset<const CTemplate*> sound =
        Workforms({MTSoundDisc, MTSoundTape, MTSoundRecord, MTSoundOther});
    EXPECT_EQ(WorkformsWith(CFP008TypeOfDate), Workforms({}));
    EXPECT_EQ(WorkformsWith(CFP006MusicSoundLiteraryText), Workforms({}));
    EXPECT_EQ(WorkformsWith(CFP008DateGroup), Workforms(MainMaterials()));
    EXPECT_EQ(WorkformsWith(CFPLdrTypeOfRecordSound), sound);
    for (const MaterialType material : MainMaterials()) {
        const CCFDialogLayoutArray form(material, 0);
        for (int i = 0; i < form.GetSize(); ++i) {
            const CFPart part = form.GetAt(i)->part;
            if (part == CFP008TypeOfDate || part == CFP006MusicSoundLiteraryText) continue;
            EXPECT_EQ(WorkformsWith(part).count(WorkformOf(material)), 1U)
                << material << ' ' << part;
        }
    }
    int rows = 0;
    for (const MaterialType material : MainMaterials()) {
        rows += CCFDialogLayoutArray(material, 0).GetSize();
    }
    EXPECT_EQ(List::GetSize(), rows - 1);  // literary text of five materials, sound type of four
}

TEST_F(GlobalEditing, IsSorted) {
    ASSERT_EQ(List::InitializeFrom(WorkformOf), 0);
    std::vector<int> parts;
    for (int i = 0; i < List::GetSize(); ++i) {
        const int part = List::GetAt(i)->GetRow().part;
        if (parts.empty() || parts.back() != part) parts.push_back(part);
        for (int j = i + 1; j < List::GetSize(); ++j) {
            ASSERT_LE(CCFGlobalEditingEntry::CCFGlobalEditingEntryCompare(*List::GetAt(i),
                                                                          *List::GetAt(j)),
                      0)
                << i << ' ' << j;
        }
    }
    parts.resize(9);
    EXPECT_EQ(parts, (std::vector<int>{102, 802, 1007, 1317, 1406, 106, 107, 2, 8}));
    const CCFDialogLayout& date = List::GetAt(0)->GetRow();
    EXPECT_STREQ(date.label, "Date of publication");
    EXPECT_EQ(date.controlType, CFControlDateGroup);
    EXPECT_EQ(date.labelBox.width, 0);
}

TEST_F(GlobalEditing, FindsEntries) {
    ASSERT_EQ(List::InitializeFrom(WorkformOf), 0);
    for (int i = 0; i < List::GetSize(); ++i) EXPECT_EQ(List::GetIndex(List::GetAt(i)), i);
    EXPECT_EQ(List::GetAt(-1), nullptr);
    EXPECT_EQ(List::GetAt(List::GetSize()), nullptr);
    const CCFGlobalEditingEntry copy = *List::GetAt(0);
    EXPECT_EQ(List::GetIndex(&copy), -1);
    EXPECT_EQ(List::GetIndex(nullptr), -1);
}

TEST_F(GlobalEditing, AppendsEntriesAndForms) {
    static constexpr CCFDialogLayout kRow = RowOf(CFP008TypeOfDate);
    const CCFDialogLayoutArray sound(MTSoundDisc, 0);
    EXPECT_EQ(List::AddEntry(kRow, nullptr), 0);
    EXPECT_EQ(List::AddDL(sound, nullptr), 0);
    EXPECT_EQ(List::GetSize(), 0);
    EXPECT_EQ(List::GetAt(0), nullptr);
    ASSERT_EQ(List::InitializeFrom([](MaterialType) { return nullptr; }), 0);
    const int size = List::GetSize();
    EXPECT_EQ(List::AddEntry(kRow, WorkformOf(MTBook)), 1);
    EXPECT_EQ(List::AddDL(sound, WorkformOf(MTSoundDisc)), 1);
    EXPECT_EQ(List::GetSize(), size + 1 + sound.GetSize() - 2);
    EXPECT_EQ(&List::GetAt(size)->GetRow(), &kRow);
    EXPECT_EQ(List::GetAt(size)->GetTemplate(), WorkformOf(MTBook));
    EXPECT_EQ(List::GetAt(0)->GetTemplate(), nullptr);
    ASSERT_EQ(List::InitializeFrom(WorkformOf), 0);
    EXPECT_EQ(List::GetSize(), size);
}

TEST_F(GlobalEditing, WithoutMemoryThereIsNoList) {
    ASSERT_EQ(List::InitializeFrom(WorkformOf), 0);
    const auto exhausted = [](MaterialType) -> const CTemplate* { throw std::bad_alloc(); };
    EXPECT_EQ(List::InitializeFrom(exhausted), 1);
    EXPECT_EQ(List::GetSize(), 0);
}

TEST_F(GlobalEditing, ThreadsShareTheList) {
    static constexpr CCFDialogLayout kRow = RowOf(CFP008Language);
    ASSERT_EQ(List::InitializeFrom(WorkformOf), 0);
    const int size = List::GetSize();
    constexpr int kThreads = 4;
    constexpr int kEach = 500;
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([] {
            for (int i = 0; i < kEach; ++i) List::AddEntry(kRow, nullptr);
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(List::GetSize(), size + kThreads * kEach);
}

#include <quillory/exchange/Input.h>
#include <quillory/store/RecordStore.h>
#include <quillory/store/Schema.h>
#include <quillory/store/WorkformStore.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/zorby/platform/TemporaryFolder.h>
#include <vector>

namespace quillory {
namespace {

constexpr int kWithdrawn = 0;

class WorkformStoreTest : public testing::Test {
protected:
    // As the library does when a workform is saved.
    int Save(const std::string& name, const std::string& block, int who = 0, int state = kUsable) {
        const int id = store_.Register(0, ("\\" + name).c_str(), who, 1, state);
        if (id > 0) store_.StoreBlock(id, block);
        return id;
    }
    std::vector<std::string> UserNames() const {
        std::vector<std::string> names;
        for (const auto& info : store_.List(kUserWorkforms)) names.push_back(info.name);
        return names;
    }

    TemporaryFolder folder_;
    Database database_ = OpenStore(folder_.Path("quillory.db"));
    WorkformStore store_{database_};
};

TEST_F(WorkformStoreTest, ASavedWorkformIsThereByEveryRoad) {
    const std::string name =
        "B\xC8"
        "cher (\x81)";  // bytes of the one-byte code, no UTF-8
    const std::string block("b\0l\xFFock", 7);
    EXPECT_EQ(Save(name, block), 100);
    EXPECT_EQ(store_.FindByName(name)->id, 100);
    EXPECT_EQ(store_.FindById(100)->name, name);
    EXPECT_EQ(store_.FindById(100)->state, kUsable);
    EXPECT_EQ(store_.Block(100), block);
    EXPECT_EQ(store_.List(kUserWorkforms).at(0).id, 100);
    EXPECT_TRUE(store_.CanAllocateId());
    const Database again = OpenStore(database_.Path());
    EXPECT_EQ(WorkformStore(again).Block(100), block);
}

TEST_F(WorkformStoreTest, ANameKeepsItsIdAndAnIdIsNeverGivenTwice) {
    EXPECT_EQ(Save("Map", "1"), 100);
    EXPECT_EQ(Save("map", "2"), 101);
    EXPECT_EQ(Save("Map", "3", 0, kWithdrawn), 100);
    EXPECT_EQ(store_.Block(100), "3");
    EXPECT_EQ(store_.FindById(100)->state, kWithdrawn);
    EXPECT_TRUE(store_.Delete(101));
    EXPECT_FALSE(store_.Delete(101));
    EXPECT_EQ(Save("map", "4"), 102);
    EXPECT_FALSE(store_.FindById(101));
    EXPECT_FALSE(store_.Block(101));
}

TEST_F(WorkformStoreTest, NothingShowsBeforeItsBlockIsStored) {
    const int id = store_.Register(0, "\\New", 0, 1, kUsable);
    EXPECT_EQ(id, 100);
    EXPECT_FALSE(store_.FindByName("New") || store_.FindById(id) || store_.Block(id));
    EXPECT_TRUE(UserNames().empty());
    EXPECT_EQ(store_.Register(0, "New", 0, 0, kUsable), id);

    Save("Old", "block", 0, kUsable);
    store_.Register(0, "\\Old", 0, 1, kWithdrawn);
    EXPECT_EQ(store_.FindByName("Old")->state, kUsable);
    EXPECT_THROW(store_.StoreBlock(4711, "x"), UsageError);
}

TEST_F(WorkformStoreTest, ASaveSurvivesThatItsEntryWasDeletedMeanwhile) {
    const int id = Save("Globe", "1");
    store_.Register(0, "\\Globe", 0, 1, kUsable);
    WorkformStore other(database_);
    EXPECT_TRUE(other.Delete(id));
    store_.StoreBlock(id, "2");
    EXPECT_EQ(store_.FindByName("Globe")->id, id);
    EXPECT_EQ(store_.Block(id), "2");
}

TEST_F(WorkformStoreTest, StandardWorkformsKeepTheirNames) {
    EXPECT_EQ(store_.Register(1, "Book", 0, 0, 1), 1);
    EXPECT_EQ(store_.Register(99, "Kit", 0, 0, 1), 99);
    EXPECT_EQ(store_.Register(100, "Mine", 0, 0, 1), 0);
    EXPECT_EQ(store_.Register(0, "Book", 0, 0, 1), 1);
    EXPECT_EQ(store_.StandardName(1), "Book");
    EXPECT_EQ(store_.StandardName(2), "");
    EXPECT_EQ(store_.FindByName("Kit")->id, 99);
    EXPECT_EQ(store_.List(kStandardWorkforms).size(), 2U);
    EXPECT_EQ(Save("Book", "x"), 0);
    EXPECT_EQ(Save("", "x"), 0);
    EXPECT_FALSE(store_.Delete(1));
    EXPECT_EQ(store_.Register(1, nullptr, 7, 1, 1), 0);
    EXPECT_THROW(store_.StoreBlock(1, "x"), UsageError);
    EXPECT_TRUE(UserNames().empty());
}

TEST_F(WorkformStoreTest, ABackslashIsAMarkOnlyInASave) {
    EXPECT_EQ(Save("\\odd", "x"), 100);
    EXPECT_EQ(store_.FindById(100)->name, "\\odd");
    EXPECT_EQ(store_.Register(0, "\\odd", 0, 0, kUsable), 100);
}

TEST_F(WorkformStoreTest, OneOwnerAtATimeHoldsALock) {
    constexpr int kAnna = 3;
    constexpr int kBert = 4;
    const int id = Save("Serial", "1");
    const Database second = OpenStore(database_.Path());
    WorkformStore other(second);
    EXPECT_FALSE(store_.Lock(id, 0));
    EXPECT_FALSE(store_.Lock(4711, kAnna));
    EXPECT_EQ(store_.Register(id, nullptr, kAnna, 1, 1), id);
    EXPECT_TRUE(store_.Lock(id, kAnna));
    EXPECT_FALSE(store_.Lock(id, kBert));
    EXPECT_FALSE(other.Lock(id, kAnna));
    EXPECT_EQ(store_.FindById(id)->holder, kAnna);
    EXPECT_EQ(other.FindById(id)->holder, kAnna);

    EXPECT_EQ(other.Save("Serial", kAnna, kUsable, "2"), 0);
    EXPECT_EQ(Save("Serial", "2", kBert), 0);
    EXPECT_FALSE(other.Delete(id));
    EXPECT_EQ(Save("Serial", "3", kAnna), id);
    EXPECT_EQ(Save("Serial", "4"), id);

    other.Unlock(id);
    EXPECT_EQ(store_.FindById(id)->holder, kAnna);
    EXPECT_EQ(store_.Register(id, nullptr, 0, 0, 1), id);
    EXPECT_EQ(other.FindById(id)->holder, 0);
    EXPECT_TRUE(other.Lock(id, kBert));
    EXPECT_FALSE(store_.Lock(id, kAnna));
    EXPECT_EQ(store_.FindById(id)->state, kUsable);
}

TEST_F(WorkformStoreTest, ADamagedBlockIsNamedAndLeavesTheOthersAlone) {
    const int id = Save("Broken", "block");
    Save("Sound", "sound");
    database_.Execute("UPDATE workforms SET block = x'626C6F636A' WHERE id = 100");
    try {
        store_.Block(id);
        FAIL();
    } catch (const FileError& error) {
        EXPECT_EQ(error.what(), database_.Path() + ": the block of a workform is damaged: 100");
    }
    EXPECT_EQ(UserNames(), (std::vector<std::string>{"Broken", "Sound"}));
    EXPECT_EQ(store_.Block(101), "sound");
    EXPECT_EQ(Save("Broken", "again"), id);
    EXPECT_EQ(store_.Block(id), "again");
}

TEST_F(WorkformStoreTest, RecordsOutliveTheirWorkform) {
    const int id = Save("Book of mine", "x");
    RecordStore records(database_);
    const std::int64_t record = records.Add({{}, "bytes", id});
    EXPECT_EQ(records.Find(record)->workform, id);
    EXPECT_TRUE(store_.Delete(id));
    EXPECT_EQ(records.Find(record)->workform, 0);
}

}  // namespace
}  // namespace quillory

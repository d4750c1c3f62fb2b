#include <quillory/exchange/Input.h>
#include <quillory/store/Schema.h>
#include <quillory/store/Workforms.h>
#include <zorby/archive/Archive.h>
#include <zorby/archive/FileStream.h>
#include <zorby/archive/MemoryStream.h>
#include <zorby/platform/ProfileFilePort.h>
#include <zorby/settings/Profile.h>
#include <zorby/text/General.h>
#include <zorby/workforms/TemplateList.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <tests/zorby/platform/TemporaryFolder.h>

namespace quillory {
namespace {

using namespace zorby;

constexpr const char* kBook = CTemplateList::kFallbackName;
constexpr const char* kField008 = "000000s########xx############000#u#und#d";

std::unique_ptr<CTemplate> Standard(int id, const char* name, MaterialType material) {
    auto workform = std::make_unique<CTemplate>();
    workform->SetID(id);
    workform->SetName(name);
    workform->ControlFieldsSetMain(material, CF006Books, CF007None, "00000nam  2200000 i 4500", "",
                                   "", kField008, "");
    workform->AddFld(245, "10", "abc", "", "a");
    workform->AddSubfieldRules(245, 'a', "The title.");
    return workform;
}

std::string BytesOf(CTemplate& workform) {
    MemoryStream stream;
    CArchive archive(stream, CArchive::store);
    workform.Serialize(archive);
    return stream.GetBytes();
}

// A folder with a data file and a store; each time that the store is opened stands for a process.
class WorkformsTest : public testing::Test {
protected:
    WorkformsTest() {
        CTemplateList list;
        list.Add(Standard(1, kBook, MTBook));
        list.Add(Standard(2, "Serial", MTSerial));
        FileStream file(folder_.Path("zorby.ttm"), FileStream::kReadWrite);
        CArchive archive(file, CArchive::store);
        list.Serialize(archive);
        archive.Close();
        file.Close();
        EXPECT_EQ(CTemplateList::InitializeTemplateList(folder_.Path() + "/"), 1);
        Reopen();
    }
    ~WorkformsTest() override {
        Close();
        CTemplateList::DestroyTemplateList();
    }

    void Close() {
        workforms_.reset();
        store_.reset();
        database_.reset();
    }
    void Reopen() {
        Close();
        database_.emplace(OpenStore(Path()));
        store_.emplace(*database_);
        workforms_.emplace(&*store_);
    }
    std::string Path() const { return folder_.Path("quillory.db"); }

    static int Save(const char* name, const char* base, const char* title = "") {
        CTemplate workform;
        workform.CloneFrom(*CTemplateList::GetStandardTemplate(base));
        workform.SetName(name);
        workform.AddDefaultData(246, '3', '_', 'a', title);
        EXPECT_EQ(workform.SaveYourself(0, 1), 1);
        return workform.GetOwnID();
    }

    TemporaryFolder folder_;
    std::optional<Database> database_;
    std::optional<WorkformStore> store_;
    std::optional<Workforms> workforms_;
};

TEST_F(WorkformsTest, AWorkformOfOneRunIsUsedInTheNext) {
    const int id = Save("B\310cher", kBook, "Preset");
    EXPECT_EQ(id, 100);
    const std::string block = store_->Block(id).value();
    Reopen();
    const TemplateHolder workform(CTemplateList::GetTemplate(id));
    EXPECT_EQ(workform->GetName(), "B\310cher");
    EXPECT_EQ(workform->GetOwnID(), id);
    EXPECT_NE(workform->IsSavedTemplate(), 0);
    EXPECT_EQ(workform->GetBaseTemplateName(), kBook);
    EXPECT_EQ(workform->SubsInTemplateOrder(245), "abc");
    EXPECT_EQ(workform->GetDefaultDataFirst(246)->GetDefaultData(), "Preset");
    std::string rules;
    workform->SubfieldRules(245, 'a', rules);
    EXPECT_EQ(rules, "The title.");
    workform->SetID(0);  // as it was when it was stored
    EXPECT_EQ(BytesOf(*workform), block);
    CTemplate::DeleteFromDB(id);
    EXPECT_EQ(CTemplateList::GetTemplate(id), nullptr);
}

TEST_F(WorkformsTest, TheLibrarysListsAndLooksComeFromTheStore) {
    const int serial = Save("My serial", "Serial");
    const int book = Save("My book", kBook);
    CStringAndUINTArraySorted names;
    CTemplate::UDTemplateNames(names, "");
    ASSERT_EQ(names.size(), 2U);
    EXPECT_EQ(names[0].text, "My book");
    CUIntArray ids;
    names.clear();
    CTemplate::UDTemplateNamesAndBaseTemplateNames(names, ids);
    EXPECT_EQ(ids, (CUIntArray{1, 2}));
    EXPECT_EQ(names[1].value, static_cast<unsigned>(serial));
    CTemplate::TemplateNames(names);
    EXPECT_EQ(names.size(), 2U);
    int found = 0;
    int inUse = -1;
    int locked = -1;
    int state = -1;
    EXPECT_EQ(CTemplate::GetTemplateInfoByName("My book", &found, &inUse, &locked, &state), 1);
    EXPECT_EQ(std::vector({found, inUse, locked, state}), std::vector({book, 0, 0, 1}));
    EXPECT_EQ(CTemplate::Lock(book, 7), 1);
    CTemplate::GetTemplateInfoByID(book, nullptr, &inUse, &locked, nullptr);
    EXPECT_EQ(std::vector({inUse, locked}), std::vector({7, 1}));
    CTemplate().Unlock(book);
    CTemplate::GetTemplateInfoByID(book, nullptr, nullptr, &locked, nullptr);
    EXPECT_EQ(locked, 0);
    EXPECT_EQ(CTemplateList::GetTemplate(2)->GetName(), "Serial");
    EXPECT_EQ(CTemplateList::GetTemplate(99)->GetName(), kBook);
    EXPECT_EQ(CTemplate::CanAllocateNextTemplateID(), 1);
}

TEST_F(WorkformsTest, ADamagedStoreThrowsThroughTheLibraryAndLosesNothing) {
    const int broken = Save("Broken", kBook);
    const int sound = Save("Sound", kBook);
    database_->Execute("UPDATE workforms SET crc = crc + 1 WHERE id = 100");
    EXPECT_THROW(CTemplateList::GetTemplate(broken), FileError);
    CStringAndUINTArraySorted names;
    EXPECT_THROW(CTemplate::UDTemplateNames(names, kBook), FileError);
    EXPECT_TRUE(TemplateHolder(CTemplateList::GetTemplate(sound)));

    const std::string block = store_->Block(sound).value();
    for (std::size_t size = 0; size < block.size(); ++size) {
        store_->StoreBlock(sound, block.substr(0, size));
        EXPECT_THROW(CTemplateList::GetTemplate(sound), CArchiveException) << size;
    }
    database_->Execute("DROP TABLE workforms");
    CTemplate workform;
    workform.CloneFrom(*CTemplateList::GetStandardTemplate(kBook));
    workform.SetName("New");
    EXPECT_THROW(workform.SaveYourself(0, 1), FileError);
    EXPECT_EQ(workform.GetOwnID(), 0);
}

TEST_F(WorkformsTest, ABaseThatIsGoneGivesTheFallback) {
    CTemplate workform;
    workform.CloneFrom(*CTemplateList::GetStandardTemplate("Serial"));
    workform.SetName("Orphan");
    workform.SetBaseTemplateName("No such base");
    workform.SaveYourself(0, 1);
    const TemplateHolder orphan(CTemplateList::GetTemplate(workform.GetOwnID()));
    EXPECT_EQ(orphan->GetBaseTemplateName(), "No such base");
    EXPECT_EQ(orphan->GetMaterialType(), MTSerial);
    std::string rules;
    orphan->SubfieldRules(245, 'a', rules);
    EXPECT_EQ(rules, "The title.");
}

// A profile that nobody can write.
class ReadOnlyProfile : public ProfileFilePort {
public:
    int ReadText(std::string_view, std::string&) override { return 0; }
    int WriteValue(std::string_view, std::string_view, std::string_view, const char*) override {
        return 0;
    }
};

TEST_F(WorkformsTest, AStaleImportMappingIsForgotten) {
    ReadOnlyProfile profile;
    SetProfileFilePort(&profile);
    CGeneral::m_iniUserProfile.Initialize("");
    const int id = Save("My book", kBook);
    CTemplateList::WriteZorbyTemplateMapProfileInt(kBook, id);
    EXPECT_EQ(TemplateHolder(CTemplateList::GetImportTemplate(MTBook))->GetName(), "My book");
    store_->Save("My book", 0, 0, store_->Block(id).value());
    EXPECT_EQ(CTemplateList::GetImportTemplate(MTBook)->GetName(), kBook);
    EXPECT_EQ(CTemplateList::GetZorbyTemplateMapProfileInt(kBook), 0);
    EXPECT_TRUE(store_->FindById(id));
    SetProfileFilePort(nullptr);
}

TEST_F(WorkformsTest, WithoutAStoreTheStandardOnesAreThere) {
    Close();
    std::string obstacle;
    EXPECT_FALSE(OpenStoreIfThere(obstacle, folder_.Path("none/quillory.db")));
    EXPECT_EQ(obstacle, "");
    EXPECT_FALSE(std::filesystem::exists(folder_.Path("none")));
    const Workforms workforms(nullptr);
    EXPECT_EQ(CTemplateList::GetTemplate(2)->GetName(), "Serial");
    EXPECT_EQ(CTemplateList::GetTemplate(100), nullptr);
    CStringAndUINTArraySorted names;
    CTemplate::UDTemplateNames(names, kBook);
    EXPECT_TRUE(names.empty());
    CTemplate workform;
    workform.CloneFrom(*CTemplateList::GetStandardTemplate(kBook));
    EXPECT_EQ(workform.SaveYourself(0, 1), 0);
}

}  // namespace
}  // namespace quillory

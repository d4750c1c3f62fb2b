#include <quillory/exchange/Input.h>
#include <quillory/store/WorkformFile.h>
#include <zorby/platform/MessagePort.h>
#include <zorby/platform/ProfileFilePort.h>
#include <zorby/workforms/TemplateList.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <fuzz/Persisted.h>
#include <fuzzer/FuzzedDataProvider.h>
#include <unistd.h>

namespace zorby {
namespace {

using fuzz::Expect;

constexpr int kFirstUserID = 100;
constexpr int kMaterials = 30;

// A host that has one workform of the user.
std::string theBlock;

TemplateCallbacks Host() {
    TemplateCallbacks host{};
    host.infoByID = [](const int&, std::string* name, int*, int*, int* state) {
        if (name != nullptr) *name = "Mine";
        if (state != nullptr) *state = 1;
        return 1;
    };
    host.update = [](int id, const char*, int, int, int, int, int) {
        return id == 0 ? kFirstUserID : id;
    };
    host.fetchBlock = [](int, void** block, int& size) {
        size = static_cast<int>(theBlock.size());
        *block = std::malloc(std::max<std::size_t>(theBlock.size(), 1));
        std::memcpy(*block, theBlock.data(), theBlock.size());
        return 1;
    };
    host.storeBlock = [](int, void* block, int size) {
        theBlock.assign(static_cast<const char*>(block), static_cast<std::size_t>(size));
    };
    host.standardName = [](int, std::string&) { return 1; };
    return host;
}

// What a new record and its editor ask a workform for.
void Use(CTemplate& workform) {
    std::string leader, field007, field008, field006, text;
    workform.GetMainMaterial().GetAll(leader, field007, field008, field006);
    Expect(leader.size() == 24 && field008.size() <= 40, "control fields have their length");
    Expect(field007.size() <= 24 && field006.size() <= 18, "control fields are not too long");
    for (int i = 0; i < workform.GetAMList().GetSize(); ++i) {
        workform.GetAMList().GetAt(i)->GetAll(field006, field007);
        Expect(field006.size() == 18 && field007.size() <= 23, "additional fields fit");
    }
    for (const unsigned tag : {0U, 245U, 600U, 4000000000U}) {
        for (const char code : {'a', '\0', '\377'}) {
            workform.SubfieldRules(tag, code, text);
            workform.SubfieldReminders(tag, code, text);
            workform.SubfieldExamples(tag, code, text);
            const bool isThere = workform.SubsInTemplateOrder(tag).find(code) != text.npos;
            Expect(workform.DefaultDataIncludes(tag, code) == 0 || isThere, "what is in is listed");
            Expect(workform.SubfieldPriority(tag, code) == workform.SubfieldPriority(tag, code),
                   "a priority stays");
        }
        workform.SubfieldPrompt(tag, text);
        workform.FieldPriority(tag);
        std::unique_ptr<CMARCInfo> list1, list2;
        std::string explanation1, explanation2, name1, name2;
        workform.MARCInfoIndicators(tag, list1, list2, explanation1, explanation2, name1, name2,
                                    EDO_NameAndCode);
        Expect(!explanation1.empty() && !name2.empty(), "indicators have texts");
    }
    int walked = 0;
    for (const auto* data = workform.GetDefaultDataFirst(0); data != nullptr;
         data = workform.GetDefaultDataNext(0)) {
        ++walked;
    }
    Expect(walked == workform.GetDefaultData().GetSize(), "a walk meets every record");
}

void CheckBlock(const std::string& bytes) {
    theBlock = bytes;
    CTemplate::InitTemplateCB(Host());
    try {
        const TemplateHolder workform(CTemplateList::GetTemplate(kFirstUserID));
        Expect(workform->GetName() == "Mine" && workform->GetOwnID() == kFirstUserID,
               "name and ID are the host's");
        Use(*workform);
        Expect(workform->SaveYourself(0, 1) == 1, "what was loaded can be saved");
        const std::string saved = theBlock;
        const TemplateHolder again(CTemplateList::GetTemplate(kFirstUserID));
        again->SaveYourself(0, 1);
        Expect(theBlock == saved, "what was saved is saved the same again");
        CTemplate clone;
        clone.CloneFrom(*again);
        fuzz::ExpectRoundTrip<CTemplate>(clone);
        Use(clone);
    } catch (const CArchiveException& damage) {
        Expect(damage.GetOffset() <= bytes.size(), "damage is in the block");
    }
}

void CheckFile(const std::string& bytes) {
    try {
        const auto workforms = quillory::ParseWorkformFile(bytes, "file");
        Expect(quillory::WorkformFileBytes(workforms) == bytes, "a file is its blocks");
        for (const quillory::FiledWorkform& workform : workforms) {
            Expect(quillory::ReadWorkformBlock(workform.block, "block").name == workform.name,
                   "a block stands alone");
        }
    } catch (const quillory::FileError&) {
        return;
    }
    CTemplateList list;
    Expect(fuzz::Load(bytes, list), "a file of workforms is a list");
    fuzz::ExpectRoundTrip<CTemplateList>(list);
}

int PutInForce(const std::string& bytes) {
    static const std::string folder = std::filesystem::temp_directory_path() /
                                      ("fuzz_workforms_" + std::to_string(getpid()) + "/");
    std::filesystem::create_directory(folder);
    std::ofstream(folder + "zorby.ttm", std::ios::binary) << bytes;
    RecordedMessages messages;
    SetMessagePort(&messages);
    int loaded = 0;
    try {
        loaded = CTemplateList::InitializeTemplateList(folder);
        Expect(messages.messages.empty() == (loaded == 1), "a list that is no use is told");
    } catch (const CArchiveException&) {
        Expect(messages.messages.empty(), "damage is thrown");
    }
    SetMessagePort(nullptr);
    std::filesystem::remove_all(folder);
    Expect((CTemplateList::TheOneAndOnly() != nullptr) == (loaded == 1), "one list or none");
    return loaded;
}

void CheckDefaults() {
    std::string text;
    for (int i = 0; i <= kMaterials + 1; ++i) {
        const auto material = static_cast<MaterialType>(i);
        CFType type006 = CF006None;
        CFType type007 = CF007None;
        CTemplateList::GetMaterialTypeName(material, text);
        CTemplateList::Get006007TypesForMaterialType(material, 's', type006, type007);
        CTemplateList::DefaultLdr(type006, type007);
        CTemplateList::Default006(type006, type007);
        Expect(CTemplateList::Default006(material).size() <= 18, "a 006 fits");
        CTemplateList::Default006Additional(material);
        for (const char form : {'a', 's', ' '}) CTemplateList::Default007(material, form);
        Expect(CTemplateList::Default008(material).size() <= 40, "an 008 fits");
        const TemplateHolder import(CTemplateList::GetImportTemplate(material));
        Expect(!import == (CTemplateList::GetTemplate(material) == nullptr), "imports have theirs");
    }
    for (int i = 0; i < CTemplateList::TheOneAndOnly()->GetSize(); ++i) {
        const CTemplate* workform = CTemplateList::TheOneAndOnly()->GetAt(i);
        CTemplate clone;
        clone.CloneFrom(*workform);
        Use(clone);
    }
}

void PutSmallListInForce() {
    auto book = std::make_unique<CTemplate>();
    book->SetID(1);
    book->SetName(CTemplateList::kFallbackName);
    book->ControlFieldsSetMain(MTBook, CF006Books, CF007None, "00000nam  2200000 i 4500", "", "",
                               "000000s########xx############000#u#und#d", "");
    book->AddFld(245, "10", "abc", "a", "a");
    book->AddRET(245, 'a', "Rules", "Examples", "Reminders");
    CTemplateList list;
    list.Add(std::move(book));
    Expect(PutInForce(fuzz::Store(list)) == 1, "a list that was stored loads");
}

void CheckListInForce(const std::string& bytes) {
    static MemoryProfileFiles files;
    SetProfileFilePort(&files);
    CTemplate::InitTemplateCB({});
    CTemplate mine;
    theBlock = fuzz::Store(mine);
    if (PutInForce(bytes) == 1) {
        CTemplate::InitTemplateCB(Host());
        CheckDefaults();
    }
    SetProfileFilePort(nullptr);
    PutSmallListInForce();
}

}  // namespace
}  // namespace zorby

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    using namespace zorby;
    if (CTemplateList::TheOneAndOnly() == nullptr) PutSmallListInForce();
    FuzzedDataProvider data(bytes, size);
    const int kind = data.ConsumeIntegralInRange(0, 7);
    const std::string content = data.ConsumeRemainingBytesAsString();
    if (kind == 0) {
        CheckListInForce(content);
    } else if (kind < 4) {
        CheckFile(content);
    } else {
        CheckBlock(content);
    }
    return 0;
}

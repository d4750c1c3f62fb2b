#include <zorby/archive/Archive.h>
#include <zorby/archive/MemoryStream.h>
#include <zorby/archive/SerializeList.h>
#include <zorby/archive/detail/DataFile.h>
#include <zorby/platform/MessagePort.h>
#include <zorby/settings/Profile.h>
#include <zorby/text/General.h>
#include <zorby/workforms/TemplateList.h>
#include <zorby/workforms/detail/TemplateHost.h>

#include <algorithm>

namespace zorby {

const CRuntimeClass CTemplateList::kRuntimeClass = RuntimeClassOf<CTemplateList>("CTemplateList");

namespace {

constexpr const char* kMapSection = "Zorby Template Map";

std::unique_ptr<CTemplateList> theList;

template <class Templates, class Test>
CTemplate* FindFirst(const Templates& templates, Test test) {
    const auto found = std::find_if(templates.begin(), templates.end(),
                                    [&](const auto& workform) { return test(*workform); });
    return found == templates.end() ? nullptr : found->get();
}

bool Uses007Type(const CTemplate& workform, CFType type007) {
    const CCFMainMaterial& main = workform.GetMainMaterial();
    if (main.Get007Type() == type007) return true;
    switch (main.Get006Type()) {
        case CF006Books:
        case CF006Continuing:
        case CF006Mixed:
            return true;
        case CF006MusicSound:
            return workform.GetMaterialType() == MTMusic &&
                   (type007 == CF007Microform || type007 == CF007Electronic);
        default:
            return false;
    }
}

void ShowNoFallback(const std::string& path) {
    const std::string text = "File \"" + path + "\" holds no workform \"" +
                             CTemplateList::kFallbackName + "\".  Can't start program.";
    CurrentMessagePort().ShowMessage(text, CGeneral::GetApplicationName(), MessageIcon::kError);
}

CTemplate* GetUserTemplate(int id) {
    const TemplateBlock block = FetchBlock(id);
    if (block.bytes == nullptr) return nullptr;
    std::string name;
    if (CTemplate::GetTemplateInfoByID(id, &name, nullptr, nullptr, nullptr) == 0) return nullptr;
    MemoryViewStream stream({static_cast<const char*>(block.bytes.get()), block.size});
    CArchive archive(stream, CArchive::load);
    auto workform = std::make_unique<CTemplate>();
    workform->Serialize(archive);
    workform->SetSavedTemplate();
    workform->SetName(name);
    workform->SetID(id);
    return workform.release();
}

}  // namespace

void CTemplateList::Serialize(CArchive& archive) {
    SerializeList(archive, templates_);
}

const CTemplate* CTemplateList::GetAt(int index) const {
    return 0 <= index && index < GetSize() ? templates_[static_cast<std::size_t>(index)].get()
                                           : nullptr;
}

int CTemplateList::InitializeTemplateList(std::string_view folder) {
    const std::string path = std::string(folder) + "zorby.ttm";
    // The list is in force while it is read, since a workform finds its base among those before it.
    theList = std::make_unique<CTemplateList>();
    try {
        if (LoadDataFile(path, *theList) != 0) {
            if (GetStandardTemplate(kFallbackName) != nullptr) return 1;
            ShowNoFallback(path);
        }
    } catch (...) {
        theList.reset();
        throw;
    }
    theList.reset();
    return 0;
}

void CTemplateList::DestroyTemplateList() {
    theList.reset();
}

const CTemplateList* CTemplateList::TheOneAndOnly() {
    return theList.get();
}

CTemplate* CTemplateList::GetTemplate(int id) {
    if (id >= kFirstUserTemplateID) return GetUserTemplate(id);
    const std::optional<std::string> name = StandardNameOf(id);
    if (!name) return nullptr;
    return GetStandardTemplate(name->empty() ? kFallbackName : name->c_str());
}

CTemplate* CTemplateList::GetTemplate(MaterialType material) {
    if (!theList) return nullptr;
    return FindFirst(theList->templates_, [material](const CTemplate& workform) {
        return workform.GetMaterialType() == material;
    });
}

CTemplate* CTemplateList::GetTemplate(CFType type006, CFType type007) {
    if (!theList) return nullptr;
    return FindFirst(theList->templates_, [&](const CTemplate& workform) {
        return workform.GetMainMaterial().Get006Type() == type006 && Uses007Type(workform, type007);
    });
}

CTemplate* CTemplateList::GetStandardTemplate(const char* name) {
    if (!theList) return nullptr;
    for (const std::string_view wanted :
         {std::string_view(name), std::string_view(kFallbackName)}) {
        CTemplate* found = FindFirst(theList->templates_, [wanted](const CTemplate& workform) {
            return workform.GetName() == wanted;
        });
        if (found != nullptr) return found;
    }
    return nullptr;
}

CTemplate* CTemplateList::GetImportTemplate(MaterialType material) {
    const CTemplate* standard = GetTemplate(material);
    if (standard == nullptr) return nullptr;
    const int mapped = GetZorbyTemplateMapProfileInt(standard->GetName());
    const int id = mapped == 0 ? standard->GetID() : mapped;
    if (id < kFirstUserTemplateID) return GetTemplate(id);
    int state = 0;
    if (CTemplate::GetTemplateInfoByID(id, nullptr, nullptr, nullptr, &state) != 0 && state != 0) {
        return GetTemplate(id);
    }
    // The workform in the profile no longer exists: forget it, and take the standard one.
    WriteZorbyTemplateMapProfileInt(standard->GetName(), 0);
    return mapped == 0 ? nullptr : GetImportTemplate(material);
}

void CTemplateList::GetTemplateNames(std::vector<std::string>& names, const char* name) {
    if (!theList) return;
    for (const auto& workform : theList->templates_) {
        if (name == nullptr || workform->GetName() == name) names.push_back(workform->GetName());
    }
}

void CTemplateList::GetTemplateNames(CStringAndUINTArraySorted& namesAndIDs) {
    namesAndIDs.clear();
    if (!theList) return;
    for (const auto& workform : theList->templates_) {
        namesAndIDs.push_back(
            {workform->GetName(), static_cast<std::uint32_t>(workform->GetOwnID())});
    }
}

int CTemplateList::GetZorbyTemplateMapProfileInt(std::string_view name) {
    return GetZorbyProfileIntRaw(kMapSection, name, 0);
}

void CTemplateList::WriteZorbyTemplateMapProfileInt(std::string_view name, const int& id) {
    if (id < kFirstUserTemplateID) {
        WriteZorbyProfileStringRaw(kMapSection, name, nullptr);
    } else {
        WriteZorbyProfileIntRaw(kMapSection, name, id);
    }
}

void CTemplateList::Add(std::unique_ptr<CTemplate> workform) {
    templates_.push_back(std::move(workform));
}

int CTemplateList::GetSize() const {
    return static_cast<int>(templates_.size());
}

}  // namespace zorby

#include <zorby/archive/Archive.h>
#include <zorby/archive/MemoryStream.h>
#include <zorby/platform/MessagePort.h>
#include <zorby/text/General.h>
#include <zorby/workforms/TemplateList.h>
#include <zorby/workforms/detail/TemplateHost.h>

namespace zorby {
namespace {

TemplateCallbacks theCallbacks{};

// A callback that isn't set counts as one that fails.
template <class Callback, class... Arguments>
int Call(Callback callback, Arguments&&... arguments) {
    return callback == nullptr ? 0 : callback(std::forward<Arguments>(arguments)...);
}

void ShowNotSaved(const CArchiveException& failure) {
    const std::string text =
        "The program discovered an error while saving template...\n\n"
        "The error occurred in the file named:\n" +
        failure.GetStreamName() +
        "\n\nHere is a number to give to technical support:\n\nCause Code:   " +
        std::to_string(failure.GetCause()) + "\n\nSorry 'bout that!";
    CurrentMessagePort().ShowMessage(text, CGeneral::GetApplicationName(), MessageIcon::kError);
}

int StoreInBlock(CTemplate& workform, std::string& block) {
    try {
        MemoryStream stream;
        CArchive archive(stream, CArchive::store);
        workform.Serialize(archive);
        archive.Close();
        block = stream.GetBytes();
        return 1;
    } catch (const CArchiveException& failure) {
        ShowNotSaved(failure);
        return 0;
    }
}

}  // namespace

std::optional<std::string> StandardNameOf(int id) {
    if (theCallbacks.standardName == nullptr) return std::nullopt;
    std::string name;
    theCallbacks.standardName(id, name);
    return name;
}

TemplateBlock FetchBlock(int id) {
    void* bytes = nullptr;
    int size = 0;
    if (Call(theCallbacks.fetchBlock, id, &bytes, size) == 0) return {};
    return {std::unique_ptr<void, FreeBlock>(bytes), static_cast<std::size_t>(size > 0 ? size : 0)};
}

void CTemplate::InitTemplateCB(const TemplateCallbacks& callbacks) {
    theCallbacks = callbacks;
    CStringAndUINTArraySorted standard;
    CTemplateList::GetTemplateNames(standard);
    for (const CStringAndUINT& entry : standard) {
        Call(theCallbacks.update, static_cast<int>(entry.value), entry.text.c_str(), 0, 0, 0, 1, 1);
    }
}

int CTemplate::SaveYourself(int a, int b) {
    std::string block;
    if (StoreInBlock(*this, block) == 0) return 0;
    const int id = Call(theCallbacks.update, 0, ("\\" + name_).c_str(), a, a, 1, b, 1);
    if (id == 0 || theCallbacks.storeBlock == nullptr) return 0;
    theCallbacks.storeBlock(id, block.data(), static_cast<int>(block.size()));
    id_ = id;
    return 1;
}

int CTemplate::GetID() const {
    if (id_ != 0) return id_;
    int id = 0;
    GetTemplateInfoByName(name_.c_str(), &id, nullptr, nullptr, nullptr);
    return id != 0 ? id : Call(theCallbacks.update, 0, name_.c_str(), 0, 0, 0, 1, 1);
}

int CTemplate::Lock(int id, int who) {
    if (id == 0 || who == 0) return 0;
    return Call(theCallbacks.update, id, nullptr, who, who, 1, 1, 1) > 0 ? 1 : 0;
}

void CTemplate::Unlock(int id) const {
    if (id > 0) Call(theCallbacks.update, id, nullptr, 0, 0, 0, flag_, 1);
}

void CTemplate::DeleteFromDB(int id) {
    if (theCallbacks.remove != nullptr) theCallbacks.remove(id);
}

int CTemplate::GetTemplateInfoByName(const char* name, int* id, int* inUse, int* locked,
                                     int* state) {
    return Call(theCallbacks.infoByName, name, id, inUse, locked, state);
}

int CTemplate::GetTemplateInfoByID(const int& id, std::string* name, int* inUse, int* locked,
                                   int* state) {
    return Call(theCallbacks.infoByID, id, name, inUse, locked, state);
}

int CTemplate::CanAllocateNextTemplateID() {
    return Call(theCallbacks.canAllocateID);
}

void CTemplate::TemplateNames(CStringAndUINTArraySorted& list) {
    list.clear();
    CUIntArray ids;
    if (theCallbacks.standardName == nullptr || Call(theCallbacks.templateIDs, ids, 0) == 0) return;
    for (const unsigned id : ids) list.push_back({GetTemplateName(static_cast<int>(id)), id});
}

void CTemplate::UDTemplateNames(CStringAndUINTArraySorted& list, std::string_view baseName) {
    CStringAndUINTArraySorted all;
    Call(theCallbacks.userTemplates, all, 1);
    for (const CStringAndUINT& entry : all) {
        if (baseName.empty()) {
            list.push_back(entry);
            continue;
        }
        const TemplateHolder workform(CTemplateList::GetTemplate(static_cast<int>(entry.value)));
        if (workform && workform->GetBaseTemplateName() == baseName) list.push_back(entry);
    }
}

void CTemplate::UDTemplateNamesAndBaseTemplateNames(CStringAndUINTArraySorted& list,
                                                    CUIntArray& ids) {
    CStringAndUINTArraySorted bases;
    CTemplateList::GetTemplateNames(bases);
    for (const CStringAndUINT& base : bases) {
        if (base.value >= kFirstUserTemplateID) continue;
        UDTemplateNames(list, base.text);
        ids.resize(list.size(), base.value);
    }
}

std::string CTemplate::GetTemplateName(int id) {
    return StandardNameOf(id).value_or(std::string());
}

}  // namespace zorby

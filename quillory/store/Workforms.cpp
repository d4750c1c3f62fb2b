#include <quillory/store/Workforms.h>
#include <zorby/workforms/TemplateList.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace quillory {
namespace {

const Workforms* inForce = nullptr;
WorkformStore* theStore = nullptr;  // the one in force

void Set(int* target, int value) {
    if (target != nullptr) *target = value;
}

int Tell(const std::optional<WorkformInfo>& info, int* inUse, int* locked, int* state) {
    if (!info) return 0;
    Set(inUse, info->holder);
    Set(locked, info->holder != 0 ? 1 : 0);
    Set(state, info->state);
    return 1;
}

int InfoByName(const char* name, int* id, int* inUse, int* locked, int* state) {
    const std::optional<WorkformInfo> info = theStore->FindByName(name);
    if (info) Set(id, info->id);
    return Tell(info, inUse, locked, state);
}

int InfoByID(const int& id, std::string* name, int* inUse, int* locked, int* state) {
    const std::optional<WorkformInfo> info = theStore->FindById(id);
    if (info && name != nullptr) *name = info->name;
    return Tell(info, inUse, locked, state);
}

int Update(int id, const char* name, int who, int /*who*/, int held, int state, int /*always 1*/) {
    return theStore->Register(id, name, who, held, state);
}

void Remove(int id) {
    theStore->Delete(id);
}

int FetchBlock(int id, void** target, int& size) {
    const std::optional<std::string> block = theStore->Block(id);
    if (!block) return 0;
    *target = std::malloc(std::max<std::size_t>(block->size(), 1));
    if (*target == nullptr) throw std::bad_alloc();
    std::memcpy(*target, block->data(), block->size());
    size = static_cast<int>(block->size());  // SQLite keeps blocks below 2^31 bytes
    return 1;
}

void StoreBlock(int id, void* block, int size) {
    theStore->StoreBlock(id, {static_cast<const char*>(block), static_cast<std::size_t>(size)});
}

int UserTemplates(zorby::CStringAndUINTArraySorted& list, int /*all*/) {
    for (const WorkformInfo& info : theStore->List(kUserWorkforms)) {
        list.push_back({info.name, static_cast<std::uint32_t>(info.id)});
    }
    list.SortByCString();
    return 1;
}

int TemplateIDs(zorby::CUIntArray& ids, int /*all*/) {
    for (const WorkformInfo& info : theStore->List(kStandardWorkforms)) {
        ids.push_back(static_cast<unsigned>(info.id));
    }
    return 1;
}

int StandardName(int id, std::string& name) {
    name = theStore->StandardName(id);
    return name.empty() ? 0 : 1;
}

int StandardNameWithoutStore(int id, std::string& name) {
    const zorby::CTemplateList* list = zorby::CTemplateList::TheOneAndOnly();
    for (int i = 0; list != nullptr && i < list->GetSize(); ++i) {
        if (list->GetAt(i)->GetOwnID() != id) continue;
        name = list->GetAt(i)->GetName();
        return 1;
    }
    return 0;
}

int CanAllocateID() {
    return theStore->CanAllocateId() ? 1 : 0;
}

zorby::TemplateCallbacks CallbacksOfStore() {
    return {.infoByName = InfoByName,
            .infoByID = InfoByID,
            .update = Update,
            .remove = Remove,
            .fetchBlock = FetchBlock,
            .storeBlock = StoreBlock,
            .userTemplates = UserTemplates,
            .templateIDs = TemplateIDs,
            .standardName = StandardName,
            .canAllocateID = CanAllocateID};
}

}  // namespace

Workforms::Workforms(WorkformStore* store) : store_(store), before_(inForce) {
    PutInForce(this);
}

Workforms::~Workforms() {
    PutInForce(before_);
}

void Workforms::PutInForce(const Workforms* workforms) {
    inForce = workforms;
    theStore = workforms == nullptr ? nullptr : workforms->store_;
    zorby::TemplateCallbacks callbacks{};
    if (theStore != nullptr) {
        callbacks = CallbacksOfStore();
    } else if (workforms != nullptr) {
        callbacks.standardName = StandardNameWithoutStore;
    }
    zorby::CTemplate::InitTemplateCB(callbacks);
}

}  // namespace quillory

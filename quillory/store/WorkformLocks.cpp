#include <quillory/store/WorkformLocks.h>

#include <cstring>
#include <string_view>

namespace quillory {

bool WorkformLocks::Lock(int id, int who) {
    if (const auto own = own_.find(id); own != own_.end()) return own->second == who;
    const std::string_view bytes(reinterpret_cast<const char*>(&who), sizeof who);
    if (!places_.Lock(id, bytes)) return false;
    own_[id] = who;
    return true;
}

void WorkformLocks::Unlock(int id) {
    if (own_.erase(id) > 0) places_.Unlock(id);
}

int WorkformLocks::HolderElsewhere(int id) const {
    const auto bytes = places_.HolderElsewhere(id);
    if (!bytes) return 0;
    constexpr int kUnknown = -1;  // has locked, and not yet written who
    int who = 0;
    if (bytes->size() == sizeof who) std::memcpy(&who, bytes->data(), sizeof who);
    return who != 0 ? who : kUnknown;
}

int WorkformLocks::HolderOf(int id) const {
    const auto own = own_.find(id);
    return own != own_.end() ? own->second : HolderElsewhere(id);
}

bool WorkformLocks::IsHeldByOther(int id, int who) const {
    const auto own = own_.find(id);
    if (own != own_.end()) return who != 0 && own->second != who;
    return HolderElsewhere(id) != 0;
}

}  // namespace quillory

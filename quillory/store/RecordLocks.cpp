#include <quillory/store/HolderText.h>
#include <quillory/store/RecordLocks.h>

namespace quillory {
namespace {

constexpr std::size_t kPlaceSize = 128;  // of who has a record, in bytes

}  // namespace

RecordLocks::RecordLocks(const std::string& store) : places_(store + "-record-locks", kPlaceSize) {}

bool RecordLocks::Lock(std::int64_t id) {
    if (IsOurs(id)) return true;
    if (!places_.Lock(id, HolderText())) return false;
    own_.insert(id);
    return true;
}

void RecordLocks::Unlock(std::int64_t id) {
    if (own_.erase(id) > 0) places_.Unlock(id);
}

void RecordLocks::UnlockAll() {
    for (const std::int64_t id : own_) places_.Unlock(id);
    own_.clear();
}

std::string RecordLocks::HolderElsewhere(std::int64_t id) const {
    const auto written = places_.HolderElsewhere(id);
    if (!written) return {};
    const std::string text = written->substr(0, written->find('\0'));
    return text.empty() ? kUnknownHolder : text;
}

}  // namespace quillory

#include <quillory/faults/Errors.h>
#include <quillory/store/LockedPlaces.h>
#include <quillory/store/RangeLock.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace quillory {
namespace {

constexpr mode_t kMode = 0666;

FileRange PlaceOf(std::int64_t id, std::size_t size) {
    const auto bytes = static_cast<std::int64_t>(size);
    return {id * bytes, bytes};
}

[[noreturn]] void Fail(const std::string& path, const char* what) {
    throw FileError(path + ": " + what + ": " + std::strerror(errno));
}

}  // namespace

LockedPlaces::LockedPlaces(std::string path, std::size_t size)
    : path_(std::move(path)),
      size_(size),
      descriptor_(open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kMode)) {
    if (descriptor_ < 0) Fail(path_, "can't be opened");
}

LockedPlaces::~LockedPlaces() {
    close(descriptor_);
}

bool LockedPlaces::Lock(std::int64_t id, std::string_view holder) {
    const FileRange place = PlaceOf(id, size_);
    if (!LockRange(descriptor_, place)) {
        if (errno == EAGAIN || errno == EACCES) return false;
        Fail(path_, "can't be locked");
    }
    std::string text(holder);
    text.resize(size_);
    // Without room for it, others are shown that somebody has it.
    if (pwrite(descriptor_, text.data(), size_, place.begin) < 0) errno = 0;
    return true;
}

void LockedPlaces::Unlock(std::int64_t id) {
    UnlockRange(descriptor_, PlaceOf(id, size_));
}

std::optional<std::string> LockedPlaces::HolderElsewhere(std::int64_t id) const {
    const FileRange place = PlaceOf(id, size_);
    const RangeState state = StateOfRange(descriptor_, place);
    if (state == RangeState::kUnknown) Fail(path_, "can't be looked at");
    if (state == RangeState::kFree) return std::nullopt;
    std::string text(size_, '\0');
    const ssize_t read = pread(descriptor_, text.data(), size_, place.begin);
    text.resize(static_cast<std::size_t>(std::max<ssize_t>(read, 0)));
    return text;
}

}  // namespace quillory

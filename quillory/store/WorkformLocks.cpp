#include <quillory/faults/Errors.h>
#include <quillory/store/WorkformLocks.h>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace quillory {
namespace {

// At the place of each ID, the file has the number of the lock's holder; that place is locked.
off_t PlaceOf(int id) {
    return static_cast<off_t>(id) * static_cast<off_t>(sizeof(int));
}

struct flock LockOf(int id, short type) {
    struct flock lock {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = PlaceOf(id);
    lock.l_len = sizeof(int);
    return lock;
}

[[noreturn]] void Fail(const std::string& path, const char* what) {
    throw FileError(path + ": " + what + ": " + std::strerror(errno));
}

}  // namespace

WorkformLocks::WorkformLocks(const std::string& path)
    : path_(path), descriptor_(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)) {
    if (descriptor_ < 0) Fail(path_, "can't be opened");
}

WorkformLocks::~WorkformLocks() {
    close(descriptor_);
}

bool WorkformLocks::Lock(int id, int who) {
    if (const auto own = own_.find(id); own != own_.end()) return own->second == who;
    struct flock lock = LockOf(id, F_WRLCK);
    if (fcntl(descriptor_, F_OFD_SETLK, &lock) != 0) {
        if (errno == EAGAIN || errno == EACCES) return false;
        Fail(path_, "can't be locked");
    }
    own_[id] = who;
    if (pwrite(descriptor_, &who, sizeof who, PlaceOf(id)) != ssize_t{sizeof who}) {
        const int reason = errno;
        Unlock(id);
        errno = reason;
        Fail(path_, "can't be written");
    }
    return true;
}

void WorkformLocks::Unlock(int id) {
    if (own_.erase(id) == 0) return;
    struct flock lock = LockOf(id, F_UNLCK);
    fcntl(descriptor_, F_OFD_SETLK, &lock);
}

int WorkformLocks::HolderElsewhere(int id) const {
    struct flock lock = LockOf(id, F_WRLCK);
    if (fcntl(descriptor_, F_OFD_GETLK, &lock) != 0) Fail(path_, "can't be looked at");
    if (lock.l_type == F_UNLCK) return 0;
    constexpr int kUnknown = -1;  // has locked, and not yet written who
    int who = 0;
    const bool isRead = pread(descriptor_, &who, sizeof who, PlaceOf(id)) == ssize_t{sizeof who};
    return isRead && who != 0 ? who : kUnknown;
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

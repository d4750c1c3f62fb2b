#include <quillory/store/RangeLock.h>

#include <fcntl.h>
#include <unistd.h>

namespace quillory {
namespace {

struct flock LockOn(FileRange range, short type) {
    struct flock lock {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = range.begin;
    lock.l_len = range.size;
    return lock;
}

}  // namespace

bool LockRange(int descriptor, FileRange range) {
    struct flock lock = LockOn(range, F_WRLCK);
    return fcntl(descriptor, F_OFD_SETLK, &lock) == 0;
}

void UnlockRange(int descriptor, FileRange range) {
    struct flock lock = LockOn(range, F_UNLCK);
    fcntl(descriptor, F_OFD_SETLK, &lock);
}

RangeState StateOfRange(int descriptor, FileRange range) {
    struct flock lock = LockOn(range, F_WRLCK);
    if (fcntl(descriptor, F_OFD_GETLK, &lock) != 0) return RangeState::kUnknown;
    return lock.l_type == F_UNLCK ? RangeState::kFree : RangeState::kLocked;
}

}  // namespace quillory

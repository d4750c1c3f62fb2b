#include <quillory/faults/Errors.h>
#include <quillory/jobs/FileHold.h>
#include <quillory/store/HolderText.h>
#include <quillory/store/RangeLock.h>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillory {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kHoldMode = 0600;

std::string TextAt(int descriptor) {
    char text[512];
    const ssize_t size = pread(descriptor, text, sizeof text, 0);
    return size > 0 ? std::string(text, static_cast<std::size_t>(size)) : kUnknownHolder;
}

bool IsSameFile(int descriptor, const fs::path& path) {
    struct stat opened {};
    struct stat named {};
    return fstat(descriptor, &opened) == 0 && stat(path.c_str(), &named) == 0 &&
           opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
}

constexpr FileRange kWholeFile;

}  // namespace

FileHold::~FileHold() {
    if (descriptor_ < 0) return;
    std::error_code ignored;
    fs::remove(path_, ignored);
    close(descriptor_);
}

// A file that its holder removes in this moment is made again.
bool FileHold::Take() {
    while (!IsOurs()) {
        const int opened = open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kHoldMode);
        if (opened < 0) {
            throw FileError(path_.string() + ": can't be written: " + std::strerror(errno));
        }
        if (!LockRange(opened, kWholeFile)) {
            holder_ = TextAt(opened);
            close(opened);
            return false;
        }
        if (IsSameFile(opened, path_)) {
            descriptor_ = opened;
        } else {
            close(opened);
        }
    }
    holder_ = HolderText();
    // Who has it is a courtesy: without room for it, others are told that somebody does.
    if (ftruncate(descriptor_, 0) != 0 ||
        pwrite(descriptor_, holder_.data(), holder_.size(), 0) < 0) {
        errno = 0;
    }
    return true;
}

bool FileHold::IsFree() const {
    const int opened = open(path_.c_str(), O_RDWR | O_CLOEXEC);
    if (opened < 0) return errno == ENOENT;
    const bool isFree = StateOfRange(opened, kWholeFile) == RangeState::kFree;
    close(opened);
    return isFree;
}

}  // namespace quillory

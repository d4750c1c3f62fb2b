#include <zorby/platform/detail/Descriptor.h>
#include <zorby/platform/detail/DiskFiles.h>

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace zorby {

namespace {

bool IsOffset(std::uint64_t position, std::size_t size) {
    constexpr auto kMost = static_cast<std::uint64_t>(std::numeric_limits<off_t>::max());
    if (position <= kMost && size <= kMost - position) return true;
    errno = EFBIG;
    return false;
}

class OpenDiskFile : public OpenFile {
public:
    explicit OpenDiskFile(Descriptor file) : file_(std::move(file)) {}

    std::int64_t ReadAt(std::uint64_t position, void* buffer, std::size_t size) override {
        if (!IsOffset(position, size)) return -1;
        auto* bytes = static_cast<char*>(buffer);
        std::size_t done = 0;
        while (done < size) {
            const ssize_t count = ::pread(file_.Number(), bytes + done, size - done,
                                          static_cast<off_t>(position + done));
            if (count == 0) break;
            if (count < 0 && errno != EINTR) return -1;
            if (count > 0) done += static_cast<std::size_t>(count);
        }
        return static_cast<std::int64_t>(done);
    }

    int WriteAt(std::uint64_t position, const void* buffer, std::size_t size) override {
        if (!IsOffset(position, size)) return 0;
        const auto* bytes = static_cast<const char*>(buffer);
        std::size_t done = 0;
        while (done < size) {
            const ssize_t count = ::pwrite(file_.Number(), bytes + done, size - done,
                                           static_cast<off_t>(position + done));
            if (count < 0 && errno != EINTR) return 0;
            if (count > 0) done += static_cast<std::size_t>(count);
        }
        return 1;
    }

    int SetSize(std::uint64_t size) override {
        if (!IsOffset(size, 0)) return 0;
        return ::ftruncate(file_.Number(), static_cast<off_t>(size)) == 0 ? 1 : 0;
    }

    std::int64_t Size() const override {
        struct stat status {};
        return ::fstat(file_.Number(), &status) == 0 ? status.st_size : -1;
    }

    int Sync() override { return ::fsync(file_.Number()) == 0 ? 1 : 0; }

private:
    Descriptor file_;
};

// Opens without blocking, since the path may be that of a pipe.
Descriptor OpenRegular(const std::string& path, int create) {
    Descriptor file(::open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC | create, 0666));
    struct stat status {};
    if (!file.IsOpen() || ::fstat(file.Number(), &status) != 0) return Descriptor(-1);
    if (S_ISREG(status.st_mode)) return file;
    errno = EINVAL;
    return Descriptor(-1);
}

// Whether the path still leads to this file, which somebody may have deleted before it was locked.
bool IsStillAt(const std::string& path, const Descriptor& file) {
    struct stat held {};
    struct stat there {};
    return ::fstat(file.Number(), &held) == 0 && ::stat(path.c_str(), &there) == 0 &&
           held.st_dev == there.st_dev && held.st_ino == there.st_ino;
}

Descriptor OpenLocked(const std::string& path, int create) {
    while (true) {
        Descriptor file = OpenRegular(path, create);
        if (!file.IsOpen() || ::flock(file.Number(), LOCK_EX | LOCK_NB) != 0) return Descriptor(-1);
        if (IsStillAt(path, file)) return file;
    }
}

}  // namespace

std::unique_ptr<OpenFile> DiskFiles::Open(const std::string& path) {
    Descriptor file = OpenLocked(path, O_CREAT);
    if (!file.IsOpen()) return nullptr;
    return std::make_unique<OpenDiskFile>(std::move(file));
}

bool DiskFiles::Exists(const std::string& path) const {
    std::error_code unknown;
    return std::filesystem::exists(path, unknown);
}

int DiskFiles::Delete(const std::string& path) {
    const Descriptor file = OpenLocked(path, 0);
    return file.IsOpen() && ::unlink(path.c_str()) == 0 ? 1 : 0;
}

}  // namespace zorby

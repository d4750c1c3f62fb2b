#include <zorby/platform/detail/Descriptor.h>
#include <zorby/platform/detail/DiskFiles.h>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <io.h>
#include <limits>
#include <share.h>
#include <sys/stat.h>
#include <system_error>
#include <utility>
#include <windows.h>

namespace zorby {

namespace {

bool IsOffset(std::uint64_t position, std::size_t size) {
    constexpr auto kMost = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (position <= kMost && size <= kMost - position) return true;
    errno = EFBIG;
    return false;
}

// One call reads or writes no more than an int counts.
unsigned OneCall(std::size_t size) {
    constexpr std::size_t kMost = 1U << 30U;
    return static_cast<unsigned>(std::min(size, kMost));
}

class OpenDiskFile : public OpenFile {
public:
    explicit OpenDiskFile(Descriptor file) : file_(std::move(file)) {}

    std::int64_t ReadAt(std::uint64_t position, void* buffer, std::size_t size) override {
        if (!IsOffset(position, size) || !Seek(position)) return -1;
        auto* bytes = static_cast<char*>(buffer);
        std::size_t done = 0;
        while (done < size) {
            const int count = ::_read(file_.Number(), bytes + done, OneCall(size - done));
            if (count < 0) return -1;
            if (count == 0) break;
            done += static_cast<std::size_t>(count);
        }
        return static_cast<std::int64_t>(done);
    }

    int WriteAt(std::uint64_t position, const void* buffer, std::size_t size) override {
        if (!IsOffset(position, size) || !Seek(position)) return 0;
        const auto* bytes = static_cast<const char*>(buffer);
        std::size_t done = 0;
        while (done < size) {
            const int count = ::_write(file_.Number(), bytes + done, OneCall(size - done));
            if (count <= 0) return 0;
            done += static_cast<std::size_t>(count);
        }
        return 1;
    }

    int SetSize(std::uint64_t size) override {
        if (!IsOffset(size, 0)) return 0;
        return ::_chsize_s(file_.Number(), static_cast<std::int64_t>(size)) == 0 ? 1 : 0;
    }

    std::int64_t Size() const override { return ::_filelengthi64(file_.Number()); }

    int Sync() override { return ::_commit(file_.Number()) == 0 ? 1 : 0; }

private:
    bool Seek(std::uint64_t position) {
        return ::_lseeki64(file_.Number(), static_cast<std::int64_t>(position), SEEK_SET) >= 0;
    }

    Descriptor file_;
};

bool IsRegular(const Descriptor& file) {
    struct _stat64 status {};
    if (::_fstat64(file.Number(), &status) != 0) return false;
    if ((status.st_mode & S_IFMT) == S_IFREG) return true;
    errno = EINVAL;
    return false;
}

// The system keeps others out for as long as the file is open.
Descriptor OpenAlone(const std::string& path, int how) {
    int number = -1;
    const std::filesystem::path name(path);
    ::_wsopen_s(&number, name.c_str(), _O_RDWR | _O_BINARY | _O_NOINHERIT | how, _SH_DENYRW,
                _S_IREAD | _S_IWRITE);
    Descriptor file(number);
    if (file.IsOpen()) return IsRegular(file) ? std::move(file) : Descriptor(-1);
    if (_doserrno == ERROR_SHARING_VIOLATION) errno = EWOULDBLOCK;
    return file;
}

}  // namespace

std::unique_ptr<OpenFile> DiskFiles::Open(const std::string& path) {
    Descriptor file = OpenAlone(path, _O_CREAT);
    if (!file.IsOpen()) return nullptr;
    return std::make_unique<OpenDiskFile>(std::move(file));
}

bool DiskFiles::Exists(const std::string& path) const {
    std::error_code unknown;
    return std::filesystem::exists(path, unknown);
}

// A temporary file is deleted when it is closed.
int DiskFiles::Delete(const std::string& path) {
    return OpenAlone(path, _O_TEMPORARY).IsOpen() ? 1 : 0;
}

}  // namespace zorby

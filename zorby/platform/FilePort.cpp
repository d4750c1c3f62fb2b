#include <zorby/platform/FilePort.h>
#include <zorby/platform/detail/DiskFiles.h>
#include <zorby/platform/detail/PortSlot.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace zorby {

namespace {

// The bytes of a file in memory, until it is closed.
class OpenMemoryFile : public OpenFile {
public:
    explicit OpenMemoryFile(std::shared_ptr<MemoryFiles::File> file) : file_(std::move(file)) {
        file_->isOpen = true;
    }
    ~OpenMemoryFile() override { file_->isOpen = false; }
    OpenMemoryFile(const OpenMemoryFile&) = delete;
    OpenMemoryFile& operator=(const OpenMemoryFile&) = delete;

    std::int64_t ReadAt(std::uint64_t position, void* buffer, std::size_t size) override {
        const std::string& bytes = file_->bytes;
        if (position >= bytes.size()) return 0;
        return static_cast<std::int64_t>(bytes.copy(static_cast<char*>(buffer), size, position));
    }

    int WriteAt(std::uint64_t position, const void* bytes, std::size_t size) override {
        std::string& all = file_->bytes;
        all.resize(std::max<std::size_t>(all.size(), position + size), '\0');
        all.replace(position, size, static_cast<const char*>(bytes), size);
        return 1;
    }

    int SetSize(std::uint64_t size) override {
        file_->bytes.resize(size, '\0');
        return 1;
    }

    std::int64_t Size() const override { return static_cast<std::int64_t>(file_->bytes.size()); }
    int Sync() override { return 1; }

private:
    std::shared_ptr<MemoryFiles::File> file_;
};

}  // namespace

std::unique_ptr<OpenFile> MemoryFiles::Open(const std::string& path) {
    std::shared_ptr<File>& file = files[path];
    if (!file) file = std::make_shared<File>();
    if (!file->isOpen) return std::make_unique<OpenMemoryFile>(file);
    errno = EWOULDBLOCK;
    return nullptr;
}

int MemoryFiles::Delete(const std::string& path) {
    const auto found = files.find(path);
    const bool isOpen = found != files.end() && found->second->isOpen;
    if (found == files.end() || isOpen) {
        errno = isOpen ? EWOULDBLOCK : ENOENT;
        return 0;
    }
    files.erase(found);
    return 1;
}

FilePort& CurrentFilePort() {
    return SlotOf<FilePort, DiskFiles>().Get();
}

void SetFilePort(FilePort* port) {
    SlotOf<FilePort, DiskFiles>().Set(port);
}

}  // namespace zorby

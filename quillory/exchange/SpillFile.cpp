#include <quillory/exchange/SpillFile.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>
#include <vector>

namespace quillory {
namespace {

constexpr std::size_t kChunkSize = 65536;

[[noreturn]] void FailToSpill(const char* what) {
    throw FileError(std::string("a temporary file ") + what + ": " + std::strerror(errno) +
                    "; TMPDIR names the folder of such files");
}

}  // namespace

// Nothing stays behind, however the program ends: the file never has a name, or not for long where
// a file system can't do that.
SpillFile::SpillFile() {
    constexpr mode_t kOnlyForUs = 0600;
    std::error_code error;
    std::filesystem::path folder = std::filesystem::temp_directory_path(error);
    if (error) folder = "/tmp";
    descriptor_ = open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, kOnlyForUs);
    if (descriptor_ >= 0) return;
    std::string path = folder / "quillory-XXXXXX";
    descriptor_ = mkostemp(path.data(), O_CLOEXEC);
    if (descriptor_ < 0) FailToSpill("can't be made");
    unlink(path.c_str());
}

SpillFile::~SpillFile() {
    close(descriptor_);
}

void SpillFile::Write(std::string_view bytes) {
    pending_ += bytes;
    if (pending_.size() >= kChunkSize) Flush();
}

void SpillFile::Flush() {
    std::string_view bytes = pending_;
    while (!bytes.empty()) {
        const ssize_t size = write(descriptor_, bytes.data(), bytes.size());
        if (size < 0 && errno != EINTR) FailToSpill("can't be written");
        if (size > 0) bytes.remove_prefix(static_cast<std::size_t>(size));
    }
    written_ += pending_.size();
    pending_.clear();
}

std::size_t SpillFile::ReadAt(std::uint64_t offset, std::span<char> target) {
    if (!pending_.empty()) Flush();
    std::size_t done = 0;
    while (done < target.size()) {
        const ssize_t size = pread(descriptor_, target.data() + done, target.size() - done,
                                   static_cast<off_t>(offset + done));
        if (size == 0) break;
        if (size < 0 && errno != EINTR) FailToSpill("can't be read");
        if (size > 0) done += static_cast<std::size_t>(size);
    }
    return done;
}

void SpillFile::CopyTo(Output& output) {
    std::vector<char> block(kChunkSize);
    std::uint64_t offset = 0;
    while (const std::size_t size = ReadAt(offset, block)) {
        output.Write({block.data(), size});
        offset += size;
    }
}

}  // namespace quillory

#include <zorby/archive/FileStream.h>

#include <cerrno>
#include <filesystem>
#include <limits>
#include <system_error>

namespace zorby {
namespace {

constexpr std::size_t kBufferSize = 4096;

// The C library would open a folder for reading and fail only at the first read.
bool IsFolder(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::is_directory(path, ignored);
}

}  // namespace

void FileStream::Closer::operator()(std::FILE* file) const noexcept {
    std::fclose(file);
}

FileStream::FileStream() = default;

FileStream::FileStream(const std::string& path, Mode mode) {
    FileStream::Open(path, mode);
}

FileStream::~FileStream() = default;

void FileStream::Open(const std::string& path, Mode mode) {
    if (IsOpen()) Close();
    path_ = path;
    mode_ = mode;
    last_ = Last::kNothing;
    position_ = 0;
    if (IsFolder(path)) Fail(CArchiveException::kCannotOpen, EISDIR);
    file_.reset(OpenFile());
    if (!file_) Fail(CArchiveException::kCannotOpen, errno);
    std::setvbuf(file_.get(), nullptr, _IOFBF, kBufferSize);
}

// With "x", a file that someone else creates between the two attempts isn't emptied.
std::FILE* FileStream::OpenFile() const {
    if (mode_ == kRead) return std::fopen(path_.c_str(), "rb");
    std::FILE* file = std::fopen(path_.c_str(), "r+b");
    if (file == nullptr && errno == ENOENT) file = std::fopen(path_.c_str(), "w+bx");
    if (file == nullptr && errno == EEXIST) file = std::fopen(path_.c_str(), "r+b");
    return file;
}

// An earlier failed write is reported too, since the C library may have dropped its bytes.
void FileStream::Close() {
    if (!IsOpen()) return;
    const bool lostBytes = std::ferror(file_.get()) != 0;
    if (std::fclose(file_.release()) != 0) Fail(CArchiveException::kWriteFailed, errno);
    if (lostBytes) Fail(CArchiveException::kWriteFailed);
}

std::size_t FileStream::Read(void* buffer, std::size_t size) {
    TurnTo(Last::kRead);
    const std::size_t count = std::fread(buffer, 1, size, file_.get());
    position_ += count;
    if (count < size && std::ferror(file_.get()) != 0) {
        const int error = errno;
        std::clearerr(file_.get());
        Fail(CArchiveException::kReadFailed, error);
    }
    return count;
}

void FileStream::Write(const void* bytes, std::size_t size) {
    if (mode_ == kRead) Fail(CArchiveException::kReadOnly);
    TurnTo(Last::kWrite);
    if (std::fwrite(bytes, 1, size, file_.get()) != size) {
        Fail(CArchiveException::kWriteFailed, errno);
    }
    position_ += size;
}

void FileStream::Flush() {
    if (last_ == Last::kWrite && IsOpen() && std::fflush(file_.get()) != 0) {
        Fail(CArchiveException::kWriteFailed, errno);
    }
}

void FileStream::Seek(std::uint64_t position) {
    if (!IsOpen()) Fail(CArchiveException::kClosed);
    MoveTo(position);
    last_ = Last::kNothing;
}

// The C library requires a seek between a read and a write, in either order.
void FileStream::TurnTo(Last direction) {
    if (!IsOpen()) Fail(CArchiveException::kClosed);
    if (last_ != Last::kNothing && last_ != direction) MoveTo(position_);
    last_ = direction;
}

void FileStream::MoveTo(std::uint64_t position) {
    if (position > static_cast<std::uint64_t>(std::numeric_limits<long>::max())) {
        Fail(CArchiveException::kSeekFailed);
    }
    if (std::fseek(file_.get(), static_cast<long>(position), SEEK_SET) != 0) {
        Fail(CArchiveException::kSeekFailed, errno);
    }
    position_ = position;
}

void FileStream::Fail(CArchiveException::Cause cause, int systemError) const {
    throw CArchiveException(cause, path_, position_, systemError);
}

bool FileStream::IsOpen() const {
    return file_ != nullptr;
}

std::uint64_t FileStream::GetPosition() const {
    return position_;
}

std::string FileStream::GetName() const {
    return path_;
}

}  // namespace zorby

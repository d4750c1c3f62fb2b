#include <zorby/archive/ArchiveException.h>
#include <zorby/archive/MemoryStream.h>

#include <algorithm>
#include <utility>

namespace zorby {
namespace {

constexpr std::size_t kGrowthStep = 1024;

std::size_t CopyOut(std::string_view bytes, std::uint64_t& position, void* buffer,
                    std::size_t size) {
    if (position >= bytes.size()) return 0;
    const std::string_view piece = bytes.substr(position, size);
    std::copy(piece.begin(), piece.end(), static_cast<char*>(buffer));
    position += piece.size();
    return piece.size();
}

// Doubling keeps the cost of many small writes linear, and the step keeps small blocks from growing
// byte by byte.
void Grow(std::string& bytes, std::size_t needed) {
    if (needed > bytes.capacity()) {
        const std::size_t wanted = std::max(needed, 2 * bytes.capacity());
        bytes.reserve((wanted + kGrowthStep - 1) / kGrowthStep * kGrowthStep);
    }
    bytes.resize(needed);
}

}  // namespace

MemoryStream::MemoryStream() = default;

MemoryStream::MemoryStream(std::string bytes) : bytes_(std::move(bytes)) {}

MemoryStream::~MemoryStream() = default;

std::size_t MemoryStream::Read(void* buffer, std::size_t size) {
    return CopyOut(bytes_, position_, buffer, size);
}

void MemoryStream::Write(const void* bytes, std::size_t size) {
    if (size == 0) return;
    if (position_ > bytes_.max_size() - size) {
        throw CArchiveException(CArchiveException::kWriteFailed, GetName(), position_);
    }
    const std::size_t end = static_cast<std::size_t>(position_) + size;
    if (end > bytes_.size()) Grow(bytes_, end);
    const char* source = static_cast<const char*>(bytes);
    std::copy(source, source + size, bytes_.data() + position_);
    position_ = end;
}

void MemoryStream::Flush() {}

void MemoryStream::Seek(std::uint64_t position) {
    position_ = position;
}

MemoryViewStream::MemoryViewStream(std::string_view bytes) : bytes_(bytes) {}

MemoryViewStream::~MemoryViewStream() = default;

std::size_t MemoryViewStream::Read(void* buffer, std::size_t size) {
    return CopyOut(bytes_, position_, buffer, size);
}

void MemoryViewStream::Write(const void*, std::size_t) {
    throw CArchiveException(CArchiveException::kReadOnly, GetName(), position_);
}

void MemoryViewStream::Flush() {}

void MemoryViewStream::Seek(std::uint64_t position) {
    position_ = position;
}

std::uint64_t MemoryStream::GetPosition() const {
    return position_;
}

const std::string& MemoryStream::GetBytes() const {
    return bytes_;
}

std::uint64_t MemoryViewStream::GetPosition() const {
    return position_;
}

}  // namespace zorby

#include <zorby/archive/Archive.h>
#include <zorby/archive/MemoryStream.h>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace zorby {
namespace {

constexpr std::uint32_t kLongLength = 0xFF;      // 16 bits of length follow
constexpr std::uint32_t kWideMarker = 0xFFFE;    // a length and 2-byte characters follow
constexpr std::uint32_t kLongerLength = 0xFFFF;  // 32 bits of length follow
constexpr std::size_t kPieceSize = 4096;
constexpr char kNotNarrow = '?';

std::string Narrow(std::string_view wide) {
    std::string narrow(wide.size() / 2, kNotNarrow);
    for (std::size_t i = 0; i < narrow.size(); ++i) {
        if (wide[2 * i + 1] == 0) narrow[i] = wide[2 * i];
    }
    return narrow;
}

}  // namespace

CArchive::CArchive(Stream& stream, Mode mode)
    : stream_(stream), mode_(mode), isView_(dynamic_cast<MemoryViewStream*>(&stream) != nullptr) {}

CArchive::~CArchive() {
    try {
        Close();
    } catch (...) {
        // A destructor must not throw. Whoever needs to know of a failure calls Close.
        open_ = false;
    }
}

// The next bytes, if they are in memory.
inline const char* CArchive::Take(std::uint64_t size) {
    return isView_ ? static_cast<MemoryViewStream&>(stream_).Take(size) : nullptr;
}

inline void CArchive::ReadWhole(void* buffer, std::size_t size, std::uint64_t itemStart) {
    if (const char* const taken = Take(size)) {
        std::copy_n(taken, size, static_cast<char*>(buffer));
    } else if (stream_.Read(buffer, size) != size) {
        Fail(CArchiveException::kEndOfFile, itemStart);
    }
}

void CArchive::Close() {
    if (!std::exchange(open_, false)) return;
    if (IsStoring()) stream_.Flush();
}

void CArchive::Read(void* buffer, std::size_t size) {
    ReadWhole(buffer, size, LoadingAt());
}

void CArchive::Write(const void* bytes, std::size_t size) {
    Storing().Write(bytes, size);
}

CArchive& CArchive::operator<<(unsigned char value) {
    Put(value, 1);
    return *this;
}

CArchive& CArchive::operator<<(char value) {
    return *this << static_cast<unsigned char>(value);
}

CArchive& CArchive::operator<<(std::int32_t value) {
    return *this << static_cast<std::uint32_t>(value);
}

CArchive& CArchive::operator<<(std::uint32_t value) {
    Put(value, 4);
    return *this;
}

CArchive& CArchive::operator<<(std::string_view text) {
    WriteLength(text.size());
    Write(text.data(), text.size());
    return *this;
}

CArchive& CArchive::operator>>(unsigned char& value) {
    value = static_cast<unsigned char>(Number<1>(LoadingAt()));
    return *this;
}

CArchive& CArchive::operator>>(char& value) {
    value = static_cast<char>(Number<1>(LoadingAt()));
    return *this;
}

CArchive& CArchive::operator>>(std::int32_t& value) {
    value = static_cast<std::int32_t>(Number<4>(LoadingAt()));
    return *this;
}

CArchive& CArchive::operator>>(std::uint32_t& value) {
    value = Number<4>(LoadingAt());
    return *this;
}

CArchive& CArchive::operator>>(std::string& text) {
    const std::uint64_t itemStart = LoadingAt();
    std::uint32_t length = 0;
    if (ReadLength(length, itemStart)) {
        text = ReadBytes(length, itemStart);
        return *this;
    }
    // With a second marker in the place of the length, the text has no length.
    if (!ReadLength(length, itemStart)) Fail(CArchiveException::kEndOfFile, itemStart);
    text = Narrow(ReadBytes(std::uint64_t{2} * length, itemStart));
    return *this;
}

std::uint64_t CArchive::LoadingAt() const {
    const std::uint64_t position = stream_.GetPosition();
    if (!open_) Fail(CArchiveException::kClosed, position);
    if (mode_ != load) Fail(CArchiveException::kWriteOnly, position);
    return position;
}

Stream& CArchive::Storing() const {
    if (!open_) Fail(CArchiveException::kClosed, stream_.GetPosition());
    if (!IsStoring()) Fail(CArchiveException::kReadOnly, stream_.GetPosition());
    return stream_;
}

template <std::size_t kSize>
std::uint32_t CArchive::Number(std::uint64_t itemStart) {
    std::array<unsigned char, 4> bytes{};
    ReadWhole(bytes.data(), kSize, itemStart);
    return bytes[0] | std::uint32_t{bytes[1]} << 8 | std::uint32_t{bytes[2]} << 16 |
           std::uint32_t{bytes[3]} << 24;
}

void CArchive::Put(std::uint32_t number, std::size_t size) {
    std::array<unsigned char, 4> bytes{};
    for (std::size_t i = 0; i < size; ++i) {
        bytes[i] = static_cast<unsigned char>(number >> (8 * i) & 0xFF);
    }
    Write(bytes.data(), size);
}

// Returns false if the wide marker is in the place of the length.
bool CArchive::ReadLength(std::uint32_t& length, std::uint64_t itemStart) {
    length = Number<1>(itemStart);
    if (length != kLongLength) return true;
    length = Number<2>(itemStart);
    if (length == kWideMarker) return false;
    if (length == kLongerLength) length = Number<4>(itemStart);
    return true;
}

// Reads in growing pieces, since a damaged length may promise far more than the stream holds.
std::string CArchive::ReadBytes(std::uint64_t size, std::uint64_t itemStart) {
    if (const char* const taken = Take(size)) {
        return {taken, static_cast<std::size_t>(size)};
    }
    std::string bytes;
    while (bytes.size() < size) {
        const std::size_t done = bytes.size();
        const std::size_t piece = std::max(kPieceSize, done);
        bytes.resize(std::min<std::uint64_t>(size, done + piece));
        ReadWhole(bytes.data() + done, bytes.size() - done, itemStart);
    }
    return bytes;
}

void CArchive::WriteLength(std::size_t length) {
    if (length > std::numeric_limits<std::uint32_t>::max()) {
        Fail(CArchiveException::kWriteFailed, Storing().GetPosition());
    }
    const auto number = static_cast<std::uint32_t>(length);
    if (number < kLongLength) return Put(number, 1);
    Put(kLongLength, 1);
    if (number < kWideMarker) return Put(number, 2);
    Put(kLongerLength, 2);
    Put(number, 4);
}

void CArchive::Fail(CArchiveException::Cause cause, std::uint64_t offset) const {
    throw CArchiveException(cause, stream_.GetName(), offset);
}

bool CArchive::IsLoading() const {
    return mode_ == load;
}

bool CArchive::IsStoring() const {
    return mode_ == store;
}

}  // namespace zorby

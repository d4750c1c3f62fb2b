#pragma once

#include <zorby/Export.h>
#include <zorby/archive/ArchiveException.h>
#include <zorby/archive/Stream.h>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace zorby {

// Loads or stores items in order, with no header and no padding. The caller owns the stream and
// keeps it alive as long as the archive. The stream's position is right after the last item read or
// written.
//
//   byte   1 byte; a char is stored in the same way
//   int32  4 bytes, little-endian; so are unsigned numbers and enumerations
//   text   a length and then that many bytes. The length is 1 byte below 255; FF and 2 bytes up to
//          65,533; FF FFFF and 4 bytes above. FF FFFE and a further length begin a text of 2-byte
//          characters, which is only read: characters above 0xFF become "?".
//   raw    exactly the bytes given
//
// Failures are thrown as CArchiveException. Whatever length a text claims to have, loading it takes
// no more memory than the stream really has bytes.
class ZORBY_EXPORT CArchive {
public:
    enum Mode : std::int32_t { store = 0, load = 1 };

    CArchive(Stream& stream, Mode mode);
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;
    // Closes the archive. A failure is lost here, so call Close where it matters.
    ~CArchive();

    bool IsLoading() const;
    bool IsStoring() const;

    void Read(void* buffer, std::size_t size);
    void Write(const void* bytes, std::size_t size);
    // Flushes a storing archive. The archive can't be used after that, and closing it again does
    // nothing.
    void Close();

    CArchive& operator<<(unsigned char value);
    CArchive& operator<<(char value);
    CArchive& operator<<(std::int32_t value);
    CArchive& operator<<(std::uint32_t value);
    CArchive& operator<<(std::string_view text);
    template <std::same_as<bool> Flag>
    CArchive& operator<<(Flag) = delete;  // the caller must choose 1 byte or 4

    CArchive& operator>>(unsigned char& value);
    CArchive& operator>>(char& value);
    CArchive& operator>>(std::int32_t& value);
    CArchive& operator>>(std::uint32_t& value);
    // If this throws, `text` is unchanged.
    CArchive& operator>>(std::string& text);

    // Loads an enumeration of 32 bits. The number that is read may not be one of its enumerators.
    template <class Enum>
    requires(std::is_enum_v<Enum> && sizeof(Enum) == sizeof(std::int32_t)) CArchive& operator>>(
        Enum& value) {
        std::int32_t number = 0;
        *this >> number;
        value = static_cast<Enum>(number);
        return *this;
    }

private:
    std::uint64_t LoadingAt() const;
    const char* Take(std::uint64_t size);
    Stream& Storing() const;
    template <std::size_t kSize>
    std::uint32_t Number(std::uint64_t itemStart);
    void Put(std::uint32_t number, std::size_t size);
    void ReadWhole(void* buffer, std::size_t size, std::uint64_t itemStart);
    bool ReadLength(std::uint32_t& length, std::uint64_t itemStart);
    std::string ReadBytes(std::uint64_t size, std::uint64_t itemStart);
    void WriteLength(std::size_t length);
    [[noreturn]] void Fail(CArchiveException::Cause cause, std::uint64_t offset) const;

    Stream& stream_;
    Mode mode_;
    bool open_ = true;
    bool isView_;  // the stream is a MemoryViewStream
};

}  // namespace zorby

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

// Loads or stores items in order, with no header and no padding. The stream is the caller's, must
// outlive the archive, and stands right behind the last item read or written.
//
//   byte   1 byte, also for a char
//   int32  4 bytes, little-endian; also for unsigned numbers and enumerations
//   text   a length and so many bytes: 1 byte below 255; FF and 2 bytes up to 65,533;
//          FF FFFF and 4 bytes above. FF FFFE and a further length begin a text of 2-byte
//          characters, which is only read: those above 0xFF become "?".
//   raw    exactly the bytes given
//
// Failures are thrown as CArchiveException. Memory used for a text is bounded by what the stream
// really holds, whatever its length says.
class ZORBY_EXPORT CArchive {
public:
    enum Mode : std::int32_t { store = 0, load = 1 };

    CArchive(Stream& stream, Mode mode);
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;
    // Closes; a failure then is lost, so call Close where it matters.
    ~CArchive();

    bool IsLoading() const { return mode_ == load; }
    bool IsStoring() const { return mode_ == store; }

    void Read(void* buffer, std::size_t size);
    void Write(const void* bytes, std::size_t size);
    // Flushes a storing archive. The archive can't be used any more; closing again does nothing.
    void Close();

    CArchive& operator<<(unsigned char value);
    CArchive& operator<<(char value);
    CArchive& operator<<(std::int32_t value);
    CArchive& operator<<(std::uint32_t value);
    CArchive& operator<<(std::string_view text);
    template <std::same_as<bool> Flag>
    CArchive& operator<<(Flag) = delete;  // 1 byte or 4 is for the caller to say

    CArchive& operator>>(unsigned char& value);
    CArchive& operator>>(char& value);
    CArchive& operator>>(std::int32_t& value);
    CArchive& operator>>(std::uint32_t& value);
    // Where it throws, `text` is unchanged.
    CArchive& operator>>(std::string& text);

    // An enumeration of 32 bits; the number read may be none of its enumerators.
    template <class Enum>
    requires(std::is_enum_v<Enum> && sizeof(Enum) == sizeof(std::int32_t)) CArchive& operator>>(
        Enum& value) {
        std::int32_t number = 0;
        *this >> number;
        value = static_cast<Enum>(number);
        return *this;
    }

private:
    Stream& Loading() const;
    Stream& Storing() const;
    std::uint32_t Number(std::size_t size, std::uint64_t itemStart);
    void Put(std::uint32_t number, std::size_t size);
    void ReadWhole(void* buffer, std::size_t size, std::uint64_t itemStart);
    bool ReadLength(std::uint32_t& length, std::uint64_t itemStart);
    std::string ReadBytes(std::uint64_t size, std::uint64_t itemStart);
    void WriteLength(std::size_t length);
    [[noreturn]] void Fail(CArchiveException::Cause cause, std::uint64_t offset) const;

    Stream& stream_;
    Mode mode_;
    bool open_ = true;
};

}  // namespace zorby

#pragma once

#include <zorby/Export.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace zorby {

// A sequence of bytes with one position, from which an archive loads or into which it stores. Every
// operation throws CArchiveException if the device fails or doesn't allow it.
class ZORBY_EXPORT Stream {
public:
    Stream() = default;
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;
    virtual ~Stream();

    // Returns the number of bytes read, which is less than `size` only at the end of the stream.
    virtual std::size_t Read(void* buffer, std::size_t size) = 0;
    // Overwrites what is at the position, and lengthens the stream if necessary. A gap between the
    // old end and the position is filled with zero bytes.
    virtual void Write(const void* bytes, std::size_t size) = 0;
    virtual void Flush() = 0;

    // The position counts bytes from the start. A position after the end may be sought, but nothing
    // can be read there.
    virtual std::uint64_t GetPosition() const = 0;
    virtual void Seek(std::uint64_t position) = 0;

    // The name of the stream in messages: the path of a file, or empty.
    virtual std::string GetName() const;
};

}  // namespace zorby

#pragma once

#include <zorby/Export.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace zorby {

// A row of bytes with one position, which an archive loads from or stores into. Every operation
// throws CArchiveException when the device fails or doesn't allow it.
class ZORBY_EXPORT Stream {
public:
    Stream() = default;
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;
    virtual ~Stream();

    // Gives the number of bytes read: fewer than `size` only at the end of the stream.
    virtual std::size_t Read(void* buffer, std::size_t size) = 0;
    // Overwrites at the position and lengthens the stream where needed. A gap between the old end
    // and the position fills with zero bytes.
    virtual void Write(const void* bytes, std::size_t size) = 0;
    virtual void Flush() = 0;

    // Counted in bytes from the start. A position behind the end may be sought; nothing is read
    // there.
    virtual std::uint64_t GetPosition() const = 0;
    virtual void Seek(std::uint64_t position) = 0;

    // What failures call the stream: a file's path, or empty.
    virtual std::string GetName() const;
};

}  // namespace zorby

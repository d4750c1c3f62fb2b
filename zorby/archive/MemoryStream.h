#pragma once

#include <zorby/archive/Stream.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace zorby {

// A block of memory that grows as it is written, in steps of 1,024 bytes.
class ZORBY_EXPORT MemoryStream : public Stream {
public:
    MemoryStream();
    // Starts with these bytes, at position 0.
    explicit MemoryStream(std::string bytes);
    ~MemoryStream() override;

    std::size_t Read(void* buffer, std::size_t size) override;
    void Write(const void* bytes, std::size_t size) override;
    void Flush() override;
    std::uint64_t GetPosition() const override;
    void Seek(std::uint64_t position) override;

    // Returns everything that was written, whatever the position is.
    const std::string& GetBytes() const;

private:
    std::string bytes_;
    std::uint64_t position_ = 0;
};

// A view of bytes that the caller keeps unchanged as long as the stream lives. Write throws with
// kReadOnly.
class ZORBY_EXPORT MemoryViewStream : public Stream {
public:
    explicit MemoryViewStream(std::string_view bytes);
    ~MemoryViewStream() override;

    std::size_t Read(void* buffer, std::size_t size) final;
    void Write(const void* bytes, std::size_t size) override;
    void Flush() override;
    std::uint64_t GetPosition() const final;
    void Seek(std::uint64_t position) final;

    // Moves over `size` bytes and returns them. If fewer are left, moves nowhere and returns null.
    const char* Take(std::uint64_t size) {
        if (position_ > bytes_.size() || bytes_.size() - position_ < size) return nullptr;
        const char* const taken = bytes_.data() + position_;
        position_ += size;
        return taken;
    }

private:
    std::string_view bytes_;
    std::uint64_t position_ = 0;
};

}  // namespace zorby

#pragma once

#include <zorby/archive/ArchiveException.h>
#include <zorby/archive/Stream.h>

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

namespace zorby {

// A binary file with a buffer of 4,096 bytes.
class ZORBY_EXPORT FileStream : public Stream {
public:
    enum Mode : std::int32_t {
        kRead,
        kReadWrite,  // created if it is missing; its content is kept
    };

    FileStream();
    FileStream(const std::string& path, Mode mode);
    // Closes the file. A failure is lost here, so call Close where it matters.
    ~FileStream() override;

    // Closes any file that was open before. If the file can't be opened, throws with kCannotOpen.
    void Open(const std::string& path, Mode mode);
    bool IsOpen() const;
    // Writes out the buffer. The file is closed even if that fails.
    void Close();

    std::size_t Read(void* buffer, std::size_t size) override;
    void Write(const void* bytes, std::size_t size) override;
    void Flush() override;
    std::uint64_t GetPosition() const override;
    void Seek(std::uint64_t position) override;
    std::string GetName() const override;

private:
    enum class Last { kNothing, kRead, kWrite };
    struct Closer {
        void operator()(std::FILE* file) const noexcept;
    };

    std::FILE* OpenFile() const;
    void TurnTo(Last direction);
    void MoveTo(std::uint64_t position);
    [[noreturn]] void Fail(CArchiveException::Cause cause, int systemError = 0) const;

    std::unique_ptr<std::FILE, Closer> file_;
    std::string path_;
    Mode mode_ = kRead;
    Last last_ = Last::kNothing;
    std::uint64_t position_ = 0;
};

}  // namespace zorby

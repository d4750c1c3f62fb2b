#pragma once

#include <quillory/faults/Errors.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillory {

// The name of "-" in messages.
inline constexpr std::string_view kStandardInput = "standard input";

// The bytes of a file or of standard input ("-"), in order, through a window that moves forward. A
// file in gzip form is unpacked. Memory is bounded by the largest window that is asked for.
class Input {
public:
    // For bytes in memory, as they are, which somebody else keeps.
    enum FromMemory : bool { kFromMemory };

    // Throws FileError.
    explicit Input(const std::string& path);
    // `name` is said of it in messages.
    Input(FromMemory, std::string_view bytes, std::string name);
    ~Input();
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;

    // At least `size` bytes from the place reached, or all that are left. The view holds until the
    // next call, or as long as what Hold gives is held. Throws FileError.
    std::string_view Peek(std::size_t size);
    // Keeps the bytes of the window where they are. Whoever holds it lets go of it in the thread
    // that reads.
    std::shared_ptr<const void> Hold() const { return buffer_; }
    // Moves on by `size` bytes, at most those in the window.
    void Skip(std::size_t size);

    // From now on damaged gzip data is no error: what can be unpacked is given, and WhatIsDamaged
    // says at the end what is wrong.
    void GiveWhatUnpacks() { givesWhatUnpacks_ = true; }
    const std::optional<Fault>& WhatIsDamaged() const { return damaged_; }

    // `act` is called each time before reading has to wait for more bytes, as at a pipe.
    void BeforeWaiting(std::function<void()> act) { beforeWaiting_ = std::move(act); }

    // Bytes before the place reached; for a gzip file, unpacked ones.
    std::uint64_t Offset() const { return offset_; }
    // Bytes of the file itself that have been read, and its size; 0 if the size is not known.
    std::uint64_t BytesRead() const { return bytesRead_; }
    std::uint64_t FileSize() const { return fileSize_; }

    // Whether the file is in gzip form; known after the first Peek.
    bool IsPacked() const { return unpacker_ != nullptr; }

    const std::string& Name() const { return name_; }
    // Whether the path leads to this very file, under whatever name; false for what is no file.
    bool IsSameFileAs(const std::string& path) const;

private:
    class Unpacker;
    using Buffer = std::vector<char>;

    void Fill(std::size_t size);
    void MakeRoom(std::size_t size);
    void ChangeBuffer(std::size_t size);
    std::size_t ReadSome(char* target, std::size_t size);
    std::size_t ReadRaw(char* target, std::size_t size);

    std::string name_;
    int descriptor_ = -1;
    std::uint64_t fileSize_ = 0;
    std::uint64_t bytesRead_ = 0;
    std::uint64_t offset_ = 0;
    std::shared_ptr<Buffer> buffer_;               // null for bytes in memory
    std::vector<std::shared_ptr<Buffer>> others_;  // that are held, or were
    const char* bytes_ = nullptr;                  // of the buffer, or in memory
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    bool atEnd_ = false;
    bool begun_ = false;
    bool givesWhatUnpacks_ = false;
    std::optional<Fault> damaged_;
    std::function<void()> beforeWaiting_;  // may be empty
    std::unique_ptr<Unpacker> unpacker_;
};

// What is held in memory of a file that is read as a whole.
inline constexpr std::uint64_t kMostHeld = std::uint64_t{64} << 20;

// All bytes from the place reached to the end. Throws FileError, also for more than `most` bytes;
// `advice` is what a person can do then.
std::string ReadWhole(Input& input, std::uint64_t most = kMostHeld,
                      const std::string& advice = "a smaller file is needed");

}  // namespace quillory

#pragma once

#include <zorby/Export.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

namespace zorby {

// A file that is open for reading and writing. Positions count bytes from the start of the file.
// After a failure, `errno` has the reason.
class ZORBY_EXPORT OpenFile {
public:
    virtual ~OpenFile() = default;

    // Returns how many bytes were read, fewer than `size` only at the end of the file; -1 if they
    // can't be read.
    virtual std::int64_t ReadAt(std::uint64_t position, void* buffer, std::size_t size) = 0;
    // Lengthens the file where necessary, with zero bytes in a gap. Returns 1, or 0 if not all of
    // the bytes could be written.
    virtual int WriteAt(std::uint64_t position, const void* bytes, std::size_t size) = 0;
    // Cuts the file after so many bytes, or lengthens it with zero bytes. Returns 1 or 0.
    virtual int SetSize(std::uint64_t size) = 0;
    // Returns the size in bytes, or -1.
    virtual std::int64_t Size() const = 0;
    // Returns when all that was written is on the device: 1, or 0.
    virtual int Sync() = 0;
};

// Files that only one program has open at a time.
class ZORBY_EXPORT FilePort {
public:
    virtual ~FilePort() = default;

    // Opens a file, which is created if it is missing and keeps its content. Nobody else can open
    // or delete it through a port as long as the result lives. Returns null, with the reason in
    // `errno`, if it can't be opened: EWOULDBLOCK if somebody else has it open.
    virtual std::unique_ptr<OpenFile> Open(const std::string& path) = 0;
    virtual bool Exists(const std::string& path) const = 0;
    // Deletes a file that nobody has open. Returns 1, or 0 with the reason in `errno`.
    virtual int Delete(const std::string& path) = 0;
};

// Keeps the files in memory, each under its path.
class ZORBY_EXPORT MemoryFiles : public FilePort {
public:
    std::unique_ptr<OpenFile> Open(const std::string& path) override;
    bool Exists(const std::string& path) const override { return files.contains(path); }
    int Delete(const std::string& path) override;

    struct File {
        std::string bytes;
        bool isOpen = false;
    };
    std::map<std::string, std::shared_ptr<File>> files;
};

// Returns the port in force. The plain one keeps regular files on disk, and locks one that is open
// against every other program that asks for the lock (flock).
ZORBY_EXPORT FilePort& CurrentFilePort();

// Puts a port in force that the caller owns and keeps alive. Null restores the plain one.
ZORBY_EXPORT void SetFilePort(FilePort* port);

}  // namespace zorby

#pragma once

#include <filesystem>
#include <string>

namespace quillory {

// Something that one program at a time may change, such as a file: a lock of the operating system
// on a small file that says who has it. It vanishes when its program ends, however it ends.
class FileHold {
public:
    // `lock` is the path of the small file.
    explicit FileHold(std::filesystem::path lock) : path_(std::move(lock)) {}
    // Gives it up.
    ~FileHold();
    FileHold(const FileHold&) = delete;
    FileHold& operator=(const FileHold&) = delete;

    // Takes it if nobody has it. False if another one does, and Holder says who then. Throws
    // FileError if the small file can't be written.
    bool Take();
    bool IsOurs() const { return descriptor_ >= 0; }
    // Such as "jo on desk-3, program 4711, since 10:41".
    const std::string& Holder() const { return holder_; }
    // Whether Take would take it now. Takes nothing.
    bool IsFree() const;

private:
    std::filesystem::path path_;
    int descriptor_ = -1;
    std::string holder_;
};

}  // namespace quillory

#pragma once

#include <quillory/exchange/Input.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// The reader of a pipe has gone. The work is over, without an error.
class ClosedPipe : public std::exception {
public:
    const char* what() const noexcept override { return "closed pipe"; }
};

// Bytes on their way to a file or to standard output ("-"). A file takes its final name in Finish:
// a file that has the name before is untouched until then. A name that ends in ".gz" is written in
// gzip form. All but the destructor throw FileError, or ClosedPipe.
class Output {
public:
    explicit Output(const std::string& path);
    ~Output();
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    void Write(std::string_view bytes) {
        if (bytes.size() > buffer_.size() - used_) {
            WriteLarge(bytes);
            return;
        }
        bytes.copy(buffer_.data() + used_, bytes.size());
        used_ += bytes.size();
    }
    // Hands everything written so far to the system, for a person who waits for it.
    void Flush();
    void Finish();

private:
    class Packer;

    void WriteLarge(std::string_view bytes);
    void WriteThrough(std::string_view bytes);
    void WriteRaw(std::string_view bytes);

    std::string name_;
    std::string finalPath_;      // empty if written in place
    std::string temporaryPath_;  // empty if there is none
    int descriptor_ = -1;
    std::vector<char> buffer_;
    std::size_t used_ = 0;
    std::unique_ptr<Packer> packer_;
};

// Writes the whole of an output at once.
void WriteOutput(const std::string& path, std::string_view bytes);

// Removes the unfinished files when a signal ends the program.
void RemoveUnfinishedFilesOnSignals();

}  // namespace quillory

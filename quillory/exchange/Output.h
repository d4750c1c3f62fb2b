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
    // For an output that goes to a text in memory instead, with each Flush.
    enum ToMemory : bool { kToMemory };

    explicit Output(const std::string& path);
    Output(ToMemory, std::string& memory);
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
    // Closes a file until more is written to it: for one of many that are written by turns.
    void Rest();
    void Finish();

private:
    class Packer;
    struct Temporary;

    void Begin();
    void Close();

    void WriteLarge(std::string_view bytes);
    void WriteThrough(std::string_view bytes);
    void WriteRaw(std::string_view bytes);

    std::string name_;
    std::string finalPath_;  // empty if written in place
    std::string temporaryPath_;
    std::unique_ptr<Temporary> temporary_;  // until the file has its final name
    bool isPacked_ = false;
    std::string* memory_ = nullptr;  // null if it goes to a file
    int descriptor_ = -1;            // negative while a file rests
    std::vector<char> buffer_;
    std::size_t used_ = 0;
    std::unique_ptr<Packer> packer_;
};

// Writes the whole of an output at once.
void WriteOutput(const std::string& path, std::string_view bytes);

// Removes the unfinished files when a signal ends the program.
void RemoveUnfinishedFilesOnSignals();

}  // namespace quillory

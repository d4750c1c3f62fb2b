#pragma once

#include <quillory/exchange/OutputTarget.h>
#include <quillory/exchange/UnfinishedFile.h>
#include <quillory/faults/Errors.h>

#include <exception>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct iovec;

namespace quillory {

class Pieces;

// The reader of a pipe has gone. The work is over, without an error.
class ClosedPipe : public std::exception {
public:
    const char* what() const noexcept override { return "closed pipe"; }
};

// What an output is to the work.
enum class OutputRole : bool {
    kMain,    // when the reader of standard output has gone, there is no more to do
    kBeside,  // what must not get lost: rejects, a report
};

// Bytes on their way to a file or to standard output ("-"). A file takes its final name in Finish:
// a file that has the name before is untouched until then, and gives its mode and its owner. A name
// that ends in ".gz" is written in gzip form. All but the destructor throw FileError; the main
// output of the work throws ClosedPipe.
class Output {
public:
    // For an output that goes to a text in memory instead, with each Flush, or to pieces, at once.
    enum ToMemory : bool { kToMemory };

    // Throws UsageError for an empty name, too. A file that is write-protected is only replaced if
    // that is asked for.
    explicit Output(const std::string& path, OutputRole role = OutputRole::kMain,
                    bool replacesProtected = false);
    Output(ToMemory, std::string& memory);
    Output(ToMemory, Pieces& pieces);
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
    void Write(const Pieces& pieces);
    // Hands everything written so far to the system, for a person who waits for it.
    void Flush();
    // Closes a file until more is written to it: for one of many that are written by turns.
    void Rest();
    // Nothing more is written. All of it is on the disk, and a file lacks only its name.
    void Complete();
    // Completes it, and gives a file its name.
    void Finish();

private:
    class Packer;

    void Make(bool replacesProtected);
    void Begin();
    void Close();
    void Sync() const;

    void WriteLarge(std::string_view bytes);
    void WriteThrough(std::string_view bytes);
    void WriteRaw(std::string_view bytes);
    void WriteParts(std::span<iovec> parts);
    [[noreturn]] void Fail(const std::string& what, int reason) const;

    std::string name_;
    OutputTarget target_;
    std::unique_ptr<UnfinishedFile> file_;  // until it has its name; null for what is no file
    bool endsQuietly_ = false;
    bool isPacked_ = false;
    bool isComplete_ = false;
    std::string* memory_ = nullptr;  // both null if it goes to a file
    Pieces* pieces_ = nullptr;
    int descriptor_ = -1;  // negative while a file rests
    std::vector<char> buffer_;
    std::size_t used_ = 0;
    std::unique_ptr<Packer> packer_;
};

// Writes the whole of an output at once.
void WriteOutput(const std::string& path, std::string_view bytes);

}  // namespace quillory

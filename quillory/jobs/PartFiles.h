#pragma once

#include <quillory/exchange/Form.h>
#include <quillory/exchange/RecordWriter.h>

#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// A text as part of a file's name that any file system takes: letters, digits, "-", "." and "_",
// and characters beyond ASCII; anything else is "_".
std::string SafeFileName(std::string_view utf8);

struct PartFilesOptions {
    std::string pattern;  // of the names; "{}" in it stands for what tells the parts apart
    const Form* form = nullptr;
    WriterOptions writing = {};
    bool force = false;                 // replace files that are there
    std::vector<std::string> inputs;    // never replaced
    std::vector<std::string> notAPart;  // other outputs
    std::uint64_t most = 10000;         // files
};

// Writes records to many files by turns. No file has its name before all of them are complete, and
// only a few are open at a time.
class PartFiles : public RecordWriter {
public:
    // Throws UsageError for a pattern without "{}".
    explicit PartFiles(PartFilesOptions options);
    ~PartFiles() override;

    // Records go to the part of this name from now on; it is made when it comes for the first
    // time. Parts whose file names would be one differ by a number after the name.
    void Choose(const std::string& part);
    // To the next of the parts that are told apart by their numbers.
    void ChooseNext();
    WriteResult Write(const Record& record, Losses& losses) override;
    // All parts are on the disk, and lack only their names.
    void Complete();
    void Finish() override;

    // Bytes of the part chosen if this record were put into it; 0 if there is none, or if it is
    // empty, for then the record has to go into it whatever its size.
    std::uint64_t SizeWith(const Record& record);

    struct Summary {
        std::string path;
        std::uint64_t records = 0;
    };
    // Of each part, in the order in which they came.
    std::vector<Summary> Parts() const;

private:
    struct Part;

    class Scale;

    std::string PathFor(const std::string& part);
    Part& Make(const std::string& path);
    void RestAnother(const Part& part);

    PartFilesOptions options_;
    std::list<Part> parts_;
    std::map<std::string, Part*, std::less<>> byName_;
    std::set<std::string> names_;  // of files, in lower case
    std::vector<Part*> open_;      // the one that was used last is last
    Part* chosen_ = nullptr;
    std::unique_ptr<Scale> scale_;  // once a size is asked for
};

}  // namespace quillory

#pragma once

#include <quillory/jobs/ResultFile.h>

#include <cstdint>
#include <string>
#include <vector>

namespace quillory {

// The files that were checked, one after the other, as results of checks name them. Results are
// read twice, and so are the names.
class CheckedFiles {
public:
    // Another file begins with another name, and with other results. Result: its number. Keeps the
    // reference.
    std::uint64_t Note(const ResultFile& results, const std::string& name);
    // All files were named once.
    void BeginAgain();
    // "x.mrc", or "x.mrc in b.jsonl" where other results have a file of that name, too. To be
    // called after BeginAgain.
    std::string Name(std::uint64_t file) const;

private:
    struct File {
        const ResultFile* results;
        std::string name;
        bool isNameShared = false;
    };

    std::vector<File> files_;
    std::size_t next_ = 0;
};

}  // namespace quillory

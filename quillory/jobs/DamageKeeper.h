#pragma once

#include <quillory/exchange/Output.h>
#include <quillory/jobs/Reporter.h>

#include <memory>
#include <string>

namespace quillory {

// What is no sound record, for a job that writes no records: it is named, and its bytes are kept in
// a file if one is given.
class DamageKeeper {
public:
    // Throws FileError if the file can't be made. An empty path is no file.
    DamageKeeper(const std::string& path, Reporter& reporter);

    // Of an item that is no record, or one that was read in spite of its damage; of a record that
    // was read in part, the file keeps all bytes. Result: true for a record.
    bool Take(const Item& item);
    // The same in two steps. The first does not depend on other items: it says what is wrong with
    // one, and tells whether it has to be kept.
    static bool Say(const Item& item, Reporter& reporter);
    void Keep(const Item& item);
    // Nothing more comes: all of the file is on the disk, before another output takes its name.
    void Complete();
    // Gives the file its final name.
    void Finish();

    // Findings, if anything came.
    Status Result() const { return status_; }

private:
    Reporter& reporter_;
    std::unique_ptr<Output> file_;
    Status status_ = kStatusWell;
};

}  // namespace quillory

#pragma once

#include <quillory/faults/Fault.h>

#include <stdexcept>
#include <string>

namespace quillory {

// A file that can't be opened, read or written. The text names the file and the reason.
class FileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A request that can't be carried out as it stands, whatever the files hold. The text says why, and
// what to do instead where that is known.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
    explicit UsageError(Fault fault)
        : std::runtime_error(FaultText(fault)), fault_(std::move(fault)) {}

    // What is wrong as a value; of no code where the text alone says it.
    const Fault& What() const { return fault_; }

private:
    Fault fault_;
};

}  // namespace quillory

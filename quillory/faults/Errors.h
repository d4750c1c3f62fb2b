#pragma once

#include <quillory/faults/Fault.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace quillory {

// An error whose text says what is wrong, and which may hold the same as a value.
class FaultError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
    explicit FaultError(Fault fault)
        : std::runtime_error(FaultText(fault)), fault_(std::move(fault)) {}
    // `where` comes first in the text: the file, and the place in it.
    FaultError(const std::string& where, Fault fault)
        : std::runtime_error(where + ": " + FaultText(fault)), fault_(std::move(fault)) {}

    // Of no code where the text alone says what is wrong.
    const Fault& What() const { return fault_; }

private:
    Fault fault_;
};

// A file that can't be opened, read, written or understood. The text names the file and the reason.
class FileError : public FaultError {
public:
    using FaultError::FaultError;
};

// A request that can't be carried out as it stands, whatever the files hold. The text says why, and
// what to do instead where that is known.
class UsageError : public FaultError {
public:
    using FaultError::FaultError;
};

}  // namespace quillory

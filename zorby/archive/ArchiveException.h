#pragma once

#include <zorby/Export.h>

#include <cstdint>
#include <stdexcept>
#include <string>

namespace zorby {

// The failure of an archive or a stream. what() is a full sentence for a person: it has the
// stream's name, if there is one, the byte offset, the reason and, if the system reported the
// failure, the system's own words.
class ZORBY_EXPORT CArchiveException : public std::runtime_error {
public:
    // Numbers are stable.
    enum Cause : std::int32_t {
        kReadOnly = 2,      // storing through a loading archive, or into a read-only stream
        kEndOfFile = 3,     // the stream ended before the item did
        kWriteOnly = 4,     // loading through a storing archive
        kCannotOpen = 8,    // the file can't be opened as asked
        kReadFailed = 9,    // the device failed while reading
        kWriteFailed = 10,  // the device failed while writing, or the item has no stored form
        kSeekFailed = 11,   // the stream has no such position
        kClosed = 12,       // the archive or the file isn't open
    };

    // `streamName` may be empty. `offset` counts bytes from the start of the stream. `systemError`
    // is the value of errno, or 0 if the system had no part in the failure.
    CArchiveException(Cause cause, std::string streamName, std::uint64_t offset,
                      int systemError = 0);
    ~CArchiveException() override;

    Cause GetCause() const { return cause_; }
    const std::string& GetStreamName() const;
    // If an item couldn't be read completely, this is where the item begins.
    std::uint64_t GetOffset() const;
    int GetSystemError() const;

private:
    Cause cause_;
    std::string streamName_;
    std::uint64_t offset_;
    int systemError_;
};

}  // namespace zorby

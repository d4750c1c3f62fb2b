#include <zorby/archive/ArchiveException.h>

#include <system_error>
#include <utility>

namespace zorby {
namespace {

const char* Reason(CArchiveException::Cause cause) {
    switch (cause) {
        case CArchiveException::kReadOnly:
            return "writing to a stream that is open for reading";
        case CArchiveException::kEndOfFile:
            return "unexpected end of file";
        case CArchiveException::kWriteOnly:
            return "reading from a stream that is open for writing";
        case CArchiveException::kCannotOpen:
            return "the file can't be opened";
        case CArchiveException::kReadFailed:
            return "reading failed";
        case CArchiveException::kWriteFailed:
            return "writing failed";
        case CArchiveException::kSeekFailed:
            return "there is no such position";
        case CArchiveException::kClosed:
            return "the stream is closed";
    }
    return "unknown failure";
}

std::string Describe(CArchiveException::Cause cause, const std::string& streamName,
                     std::uint64_t offset, int systemError) {
    std::string text = streamName.empty() ? "" : streamName + ": ";
    text += "offset " + std::to_string(offset) + ": " + Reason(cause);
    if (systemError != 0) text += ": " + std::generic_category().message(systemError);
    return text;
}

}  // namespace

CArchiveException::CArchiveException(Cause cause, std::string streamName, std::uint64_t offset,
                                     int systemError)
    : std::runtime_error(Describe(cause, streamName, offset, systemError)),
      cause_(cause),
      streamName_(std::move(streamName)),
      offset_(offset),
      systemError_(systemError) {}

CArchiveException::~CArchiveException() = default;

const std::string& CArchiveException::GetStreamName() const {
    return streamName_;
}

std::uint64_t CArchiveException::GetOffset() const {
    return offset_;
}

int CArchiveException::GetSystemError() const {
    return systemError_;
}

}  // namespace zorby

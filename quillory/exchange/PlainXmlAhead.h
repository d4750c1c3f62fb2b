#pragma once

#include <quillory/exchange/Channel.h>
#include <quillory/exchange/PlainXml.h>
#include <quillory/exchange/PlainXmlRun.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

namespace quillory {

// Reads records in a thread of its own, from where one seems to begin. They are of use only to a
// reader who comes to that very place between two records.
class PlainXmlAhead {
public:
    PlainXmlAhead() = default;
    // Waits until the thread is at rest.
    ~PlainXmlAhead();
    PlainXmlAhead(const PlainXmlAhead&) = delete;
    PlainXmlAhead& operator=(const PlainXmlAhead&) = delete;

    // Begins in the midst of `xml`, which begins at `offset` of the file, to read records whose
    // start tag is `tag`, unless there are some in hand. Does nothing if there is little to read
    // or the system has no thread to spare. `bytes` holds the XML.
    void Begin(std::string_view xml, std::uint64_t offset, const std::string& tag,
               PlainXmlRuns& runs, std::shared_ptr<const void> bytes);
    // From `offset` to the records in hand; the largest number if there are none.
    std::size_t BytesBefore(std::uint64_t offset) const;

    struct Part {
        std::shared_ptr<PlainXmlRun> run;
        std::size_t size = 0;  // of its bytes
    };
    // Takes the records in hand, if a reader who is at `offset` would have read them, and gives
    // them up if the reader has passed them.
    std::optional<Part> Take(std::uint64_t offset, const std::string& tag);

private:
    bool IsStarted();
    void Work();

    // What the thread has while records are in hand.
    PlainXml plain_;
    std::string_view xml_;
    std::uint64_t offset_ = 0;
    std::shared_ptr<PlainXmlRun> run_;  // null if no records are in hand

    std::string tag_;
    std::shared_ptr<const void> bytes_;
    bool canStart_ = true;
    Channel<bool> begun_;
    Channel<std::size_t> done_;  // bytes that were read
    std::jthread thread_;
};

}  // namespace quillory

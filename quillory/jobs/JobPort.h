#pragma once

#include <quillory/exchange/Record.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace quillory {

// One message of a job.
struct Message {
    std::string_view file;         // that is being worked on; empty where the text names it
    const Item* item = nullptr;    // what the message is about; null: a file, or the job as a whole
    const Fault* fault = nullptr;  // what is wrong; null for a message that reports no fault
    std::string_view kind;         // messages of one kind belong together; may be empty
    std::string_view text;
    bool isCounted = false;  // of its kind, only the first few in a file are said
};

// How far a job has come.
struct JobProgress {
    std::uint64_t records = 0;
    std::uint64_t done = 0;   // of the total
    std::uint64_t total = 0;  // 0 if it is not known
};

// What a job asks of the program around it: to show its messages, and how far it has come.
class JobPort {
public:
    virtual ~JobPort() = default;

    virtual void Say(const Message& message) = 0;
    virtual void BeginProgress() {}
    // Comes every few hundred records.
    virtual void ShowProgress(const JobProgress& /*progress*/) {}
    // The work of which progress was shown is over.
    virtual void EndProgress() {}
};

// "FILE: record 2 at byte 90 (001 x)", as it stands in messages.
std::string ItemPlace(std::string_view file, const Item& item);

// A message as one text: its place, where it is about an item, and its own text.
std::string MessageLine(const Message& message);

// "1 record", "2 records".
std::string Counted(std::uint64_t count, std::string_view noun);

}  // namespace quillory

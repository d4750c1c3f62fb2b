#pragma once

#include <quillory/exchange/Record.h>

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace quillory {

// Exit statuses of every command.
enum Status : int { kStatusWell = 0, kStatusFindings = 1, kStatusFailed = 2 };

// Messages on standard error. Of one kind of message the first few of a file are said in full and
// the others are counted, unless all are asked for.
class Reporter {
public:
    Reporter(bool quiet, bool all) : quiet_(quiet), all_(all) {}

    void BeginFile(const std::string& name);
    // Says how many messages of the file were only counted.
    void EndFile();

    // What is wrong with an item, and what became of it. `kind` groups messages.
    void Say(const Item& item, std::string_view kind, std::string_view text);
    // The same, with a text that is made only if it is said.
    void Say(const Item& item, std::string_view kind, const std::function<std::string()>& text);
    // As Say, where the item's reason, the place of its fault and what became of it are the
    // message.
    void SayFault(const Item& item);
    // As Say, about something that is no item of a file of records.
    void SayCounted(std::string_view kind, std::string_view text);
    // About the file or the work as a whole.
    void Say(std::string_view text) const;

    // "FILE: record 2 at byte 90 (001 x)", as it stands in messages.
    std::string PlaceOf(const Item& item) const;
    // The file in hand.
    const std::string& File() const { return file_; }
    bool Quiet() const { return quiet_; }
    bool SaysAll() const { return all_; }

private:
    // Whether a message of this kind is said, and not only counted.
    bool Count(std::string_view kind);

    bool quiet_;
    bool all_;
    std::string file_;
    std::map<std::string, std::uint64_t, std::less<>> counts_;
};

// Bytes of a record on their way to a terminal: none that could steer it.
std::string Printable(std::string_view text);
// "1 record", "2 records".
std::string Counted(std::uint64_t count, std::string_view noun);

}  // namespace quillory

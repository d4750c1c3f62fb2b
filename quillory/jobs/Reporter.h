#pragma once

#include <quillory/jobs/JobPort.h>
#include <quillory/jobs/Status.h>

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace quillory {

struct ReporterOptions {
    bool quiet = false;  // no progress and no summary
    bool all = false;    // every message; else the first few of a kind in each file
};

// Hands the messages of a job to its port. The first few messages of a kind in a file are said in
// full and the others are counted, unless all are asked for.
class Reporter {
public:
    // Keeps the reference.
    Reporter(JobPort& port, ReporterOptions options) : port_(port), options_(options) {}

    void BeginFile(const std::string& name);
    // Says how many messages of the file were only counted.
    void EndFile();
    // Messages are again about a file that was read before, and are counted with those of the
    // others.
    void GoBackTo(const std::string& name) { file_ = name; }

    // What is wrong with an item, and lines that say more. Faults with one heading are of one kind.
    void Say(const Item& item, const Fault& fault, std::string_view lines = {});
    // The same with a fault of this code that is made only if it is said.
    void Say(const Item& item, FaultCode code, const std::function<Fault()>& fault);
    // The item's own fault, its place in the file, and what became of the item; then what was
    // mended or left out.
    void SayFault(const Item& item);
    // Something that leaves no doubt: it is counted, and said with its number at the end of the
    // file.
    void Note(FaultCode code) { ++notes_[code]; }
    // As Say, with the fault's place in the file, not counted with others of its kind.
    void SayAlways(const Item& item, const ItemFault& fault, std::string_view lines = {});
    // About an item, with a text that is made only if it is said. `kind` groups messages.
    void Say(const Item& item, std::string_view kind, const std::function<std::string()>& text);
    // About something that is no item of a file of records.
    void SayCounted(std::string_view kind, std::string_view text);
    // About the file or the work as a whole.
    void Say(std::string_view text) const;

    // What another reporter of the same file said, as if it were said here.
    void Pass(const Message& message);
    // What a reporter counted and did not say.
    struct Unsaid {
        std::map<std::string, std::uint64_t, std::less<>> counts;  // by kind
        std::map<FaultCode, std::uint64_t> notes;
    };
    // Of what came since the last call; what comes then is counted anew.
    Unsaid TakeUnsaid();
    void Add(const Unsaid& unsaid);

    std::string PlaceOf(const Item& item) const { return ItemPlace(file_, item); }

    // The file in hand.
    const std::string& File() const { return file_; }
    bool Quiet() const { return options_.quiet; }
    bool SaysAll() const { return options_.all; }
    const ReporterOptions& Options() const { return options_; }
    JobPort& Port() const { return port_; }

private:
    // Whether a message of this kind is said, and not only counted.
    bool Count(std::string_view kind);

    JobPort& port_;
    ReporterOptions options_;
    std::string file_;
    std::map<std::string, std::uint64_t, std::less<>> counts_;
    std::map<FaultCode, std::uint64_t> notes_;
};

}  // namespace quillory

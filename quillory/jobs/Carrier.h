#pragma once

#include <quillory/exchange/Output.h>
#include <quillory/exchange/Pieces.h>
#include <quillory/exchange/Recoder.h>
#include <quillory/exchange/RecordWriter.h>
#include <quillory/jobs/Reporter.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quillory {

// What a job does to a record in its last character set, before it is written. Result: lines that
// say why the record has to stay, or an empty text.
using Preparation = std::function<std::string(Item& item, Losses& losses)>;

struct CarrierOptions {
    RecoderOptions recoder;
    bool eachLoss = false;  // report the characters not carried for each record, too
    // File for the bytes of what is not written or was read in part; empty for none.
    std::string rejects;
    Preparation prepare;    // may be empty
    bool isDryRun = false;  // nothing comes of what is written
    bool force = false;     // replaces a file of rejects that is write-protected
};

// What became of items.
struct CarrierTotals {
    Status status = kStatusWell;  // findings, if anything was wrong
    std::uint64_t written = 0;    // to where the records go
    std::uint64_t rejected = 0;
    std::uint64_t partial = 0;
    std::uint64_t stray = 0;
    std::uint64_t mislabelled = 0;
    std::uint64_t leadersMended = 0;
    Losses losses;

    void Add(const CarrierTotals& others);
};

// Carries records through the character sets into a writer. Reports what is wrong with them, and
// keeps the bytes of what is not written.
class Carrier {
public:
    // Throws FileError if the file of rejects can't be made.
    Carrier(const CarrierOptions& options, RecordWriter& writer, Reporter& reporter);
    // With an output of rejects; or null.
    Carrier(CarrierOptions options, RecordWriter& writer, std::unique_ptr<Output> rejects,
            Reporter& reporter);

    void Take(Item& item);
    // What another carrier did, and the rejects that it wrote.
    void Add(const CarrierTotals& others, const Pieces& rejects);
    // The rejects are on the disk, and lack only their name. Throws FileError.
    void Complete();
    // Gives the file of rejects its final name. Throws FileError.
    void Finish();
    // Reports in short what became of the records.
    void Summarize() const;

    // Findings, if anything was wrong.
    Status Result() const { return totals_.status; }
    void Raise(Status status);
    // What became of the items since the last call.
    CarrierTotals TakeTotals() { return std::exchange(totals_, {}); }

private:
    void TakeRecord(Item& item);
    bool Prepare(Item& item);
    void Write(const Item& item);
    void Refuse(const Item& item, const ItemFault& fault, const std::string& lines = {});
    void Reject(const Item& item);
    void KeepIfPartial(const Item& item);
    void CountLosses(const Item& item);

    CarrierOptions options_;
    RecordWriter& writer_;
    Reporter& reporter_;
    Recoder recoder_;
    std::unique_ptr<Output> rejects_;
    Losses recordLosses_;
    CarrierTotals totals_;
};

}  // namespace quillory

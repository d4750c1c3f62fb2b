#pragma once

#include <quillory/store/RecordStore.h>

#include <cstdint>
#include <future>
#include <vector>

namespace quillory {

// Gathers records and adds them to the store many at a time, each time in one transaction, while
// the next ones are gathered. Other processes may write to the store meanwhile; what else this one
// does with the connection has to wait until Flush or Stop returns. Failures throw FileError, those
// of one batch when the next one is full.
class RecordBatch {
public:
    // Adds them after every `size` records, or earlier if they take up much memory.
    explicit RecordBatch(RecordStore& store, std::size_t size = 50000);
    // As Stop.
    ~RecordBatch();
    RecordBatch(const RecordBatch&) = delete;
    RecordBatch& operator=(const RecordBatch&) = delete;

    void Add(NewRecord record);
    // Adds what is gathered, and waits until it is there.
    void Flush();
    // Waits for what is being added, and drops what is only gathered.
    void Stop() noexcept;

    // Records of which it is known by now that they have been added, and their first and last ID.
    std::uint64_t Saved() const { return saved_; }
    IdRange Ids() const { return ids_; }
    // Those of them whose control number was there before.
    const RepeatedNumbersFound& Repeated() const { return repeated_; }

private:
    struct Added {
        IdRange ids;
        RepeatedNumbersFound repeated;
    };

    void Begin(std::launch how);
    void Await();

    RecordStore& store_;
    std::size_t size_;
    std::size_t bytes_ = 0;
    std::vector<NewRecord> gathered_;
    std::vector<NewRecord> adding_;
    std::future<Added> added_;  // valid while there is something to wait for
    std::uint64_t saved_ = 0;
    IdRange ids_;
    RepeatedNumbersFound repeated_;
};

}  // namespace quillory

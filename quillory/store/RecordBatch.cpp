#include <quillory/exchange/SignalsBlocked.h>
#include <quillory/faults/Errors.h>
#include <quillory/store/RecordBatch.h>

#include <exception>
#include <system_error>
#include <utility>

namespace quillory {
namespace {

// Of two batches, one is being added.
constexpr std::size_t kBatchBytes = std::size_t{96} << 20;
constexpr int kBatchCheckpointPages = 20000;  // a page that every batch changes is written once

// None if the store can't be read: the records have been added all the same.
RepeatedNumbersFound RepeatedIn(const RecordStore& store, IdRange ids) {
    try {
        return store.FindRepeatedNumbers(ids);
    } catch (const FileError&) {
        return {};
    }
}

}  // namespace

RecordBatch::RecordBatch(RecordStore& store, std::size_t size) : store_(store), size_(size) {
    store_.GetDatabase().SetCheckpointPages(kBatchCheckpointPages);
}

RecordBatch::~RecordBatch() {
    Stop();
    store_.GetDatabase().SetCheckpointPages(kCheckpointPages);
}

void RecordBatch::Add(NewRecord record) {
    bytes_ += record.bytes.size();
    gathered_.push_back(std::move(record));
    if (gathered_.size() >= size_ || bytes_ >= kBatchBytes) Begin(std::launch::async);
}

void RecordBatch::Begin(std::launch how) {
    Await();
    if (gathered_.empty()) return;
    adding_.clear();
    adding_.swap(gathered_);
    bytes_ = 0;
    const auto addAll = [this] {
        const IdRange ids = store_.AddAll(adding_);
        return Added{ids, RepeatedIn(store_, ids)};
    };
    try {
        const SignalsBlocked blocked;
        added_ = std::async(how, addAll);
    } catch (const std::system_error&) {  // the system has no thread to spare
        added_ = std::async(std::launch::deferred, addAll);
    }
}

void RecordBatch::Await() {
    if (!added_.valid()) return;
    const auto [ids, repeated] = added_.get();
    ids_ = {saved_ == 0 ? ids.first : ids_.first, ids.last};
    saved_ += adding_.size();
    if (repeated_.count == 0) repeated_.first = repeated.first;
    repeated_.count += repeated.count;
}

void RecordBatch::Flush() {
    Begin(std::launch::deferred);
    Await();
}

void RecordBatch::Stop() noexcept {
    gathered_.clear();
    try {
        Await();
    } catch (const std::exception&) {
        adding_.clear();  // which were not added
    }
}

}  // namespace quillory

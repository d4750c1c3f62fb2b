#pragma once

#include <quillory/jobs/Reporter.h>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace quillory {

// Takes an item, and tells whether there is more to do.
using ItemTaker = std::function<bool(Item& item)>;

// What has to be done in the order of the input.
using Step = std::function<void()>;
using Steps = std::vector<Step>;

// One of several that share out a job's work on items, each on a thread of its own. It changes
// nothing that is not its own.
class ItemWorker {
public:
    virtual ~ItemWorker() = default;
    // The item's bytes stay until the steps of its batch are done. The item stays, too, if the call
    // leaves a step.
    virtual void Take(Item& item) = 0;
    // Whether the item taken last stays, too, since a step that was left before is about it.
    virtual bool KeepsItems() const { return false; }
    // Leaves what remains to be done with the items taken since the last call to the steps.
    virtual void EndBatch() {}
};

// Does something with an item, and may hand it on to another one.
class HandingWorker : public ItemWorker {
public:
    explicit HandingWorker(std::unique_ptr<ItemWorker> next) : next_(std::move(next)) {}

    bool KeepsItems() const override { return next_->KeepsItems(); }
    void EndBatch() override { next_->EndBatch(); }

protected:
    void HandOn(Item& item) { next_->Take(item); }

private:
    std::unique_ptr<ItemWorker> next_;
};

// A worker of which no more is known than what it does with an item.
std::unique_ptr<ItemWorker> MakeWorker(std::function<void(Item& item)> take);

// Makes a worker, with a reporter of its own. Its steps are done where the job was begun: those of
// a batch of items after those of all batches before it.
using WorkerMaker = std::function<std::unique_ptr<ItemWorker>(Reporter& reporter, Steps& steps)>;

// What a job does with items: one after the other, or by workers, with the same result.
struct ItemJob {
    ItemTaker take;
    WorkerMaker makeWorker = {};  // empty if the work can't be shared out

    bool operator()(Item& item) const { return take(item); }
};

// Whether and how work is shared out.
struct CrewOptions {
    unsigned jobs = 1;  // workers; 1: no thread is started
    // Bytes of items that are taken one after the other before a crew is worth its while, and those
    // that a worker is given at a time.
    std::size_t alone = std::size_t{1} << 20;
    std::size_t batch = std::size_t{1} << 18;
};

}  // namespace quillory

#pragma once

#include <quillory/exchange/Input.h>
#include <quillory/exchange/ItemMemory.h>
#include <quillory/exchange/RecordRuns.h>

#include <cstddef>
#include <deque>
#include <memory>

namespace quillory {

// Items that follow one another in a file, some of them still to be read. Their bytes stay until
// Clear.
class ItemBatch {
public:
    void Add(const Item& item);
    // Copies nothing. `runs` gave the run.
    void Add(const RecordRun& run, const RecordRuns& runs);
    std::size_t Bytes() const { return bytes_; }

    // Hands the items to `take`, which tells of each whether the item, too, has to stay until
    // Clear. It can be called once.
    template <class Take>
    void ForEach(Take take) {
        std::size_t at = 0;
        for (Run& run : runs_) {
            for (; at < run.itemsBefore; ++at) take(items_.At(at));
            while (Item* item = ReadFrom(run)) {
                if (!take(*item)) read_.GiveBackLast();
            }
        }
        for (; at < items_.Size(); ++at) take(items_.At(at));
    }

    void Clear();

private:
    // Items that stay where they are, and keep their room when they are forgotten.
    class Row {
    public:
        Item& Add() {
            if (size_ == items_.size()) items_.emplace_back();
            return items_[size_++];
        }
        void GiveBackLast() { --size_; }
        Item& At(std::size_t index) { return items_[index]; }
        std::size_t Size() const { return size_; }
        void Clear() { size_ = 0; }

    private:
        std::deque<Item> items_;
        std::size_t size_ = 0;
    };

    struct Run {
        Run(const RecordRun& run, const RecordRuns& runs, std::size_t items);

        std::shared_ptr<const void> holder;
        Input input;
        std::unique_ptr<RecordReader> reader;
        std::size_t itemsBefore;  // that were given as items
    };

    Item* ReadFrom(Run& run);

    ItemMemory memory_;
    Row items_;
    std::deque<Run> runs_;
    Row read_;  // of the runs
    std::size_t bytes_ = 0;
};

}  // namespace quillory

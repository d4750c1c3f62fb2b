#include <quillory/jobs/ItemBatch.h>

namespace quillory {

ItemBatch::Run::Run(const RecordRun& run, const RecordRuns& runs, std::size_t items)
    : holder(run.holder),
      input(Input::kFromMemory, run.bytes, {}),
      reader(runs.ReaderOf(run, input)),
      itemsBefore(items) {}

void ItemBatch::Add(const Item& item) {
    memory_.Copy(item, items_.Add());
    bytes_ += item.bytes.size();
}

void ItemBatch::Add(const RecordRun& run, const RecordRuns& runs) {
    runs_.emplace_back(run, runs, items_.Size());
    bytes_ += run.bytes.size();
}

// What a reader makes out of damage is its own.
Item* ItemBatch::ReadFrom(Run& run) {
    Item& item = read_.Add();
    if (!run.reader->Next(item)) return nullptr;
    if (item.fault) memory_.Copy(Item(item), item);
    return &item;
}

void ItemBatch::Clear() {
    memory_.Clear();
    items_.Clear();
    runs_.clear();
    read_.Clear();
    bytes_ = 0;
}

}  // namespace quillory

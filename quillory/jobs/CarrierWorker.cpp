#include <quillory/jobs/CarrierWorker.h>

#include <cstddef>
#include <utility>

namespace quillory {
namespace {

std::unique_ptr<Output> Memory(const CarrierOptions& options, Pieces& pieces) {
    if (options.rejects.empty()) return nullptr;
    return std::make_unique<Output>(Output::kToMemory, pieces);
}

WriterOptions PartOf(WriterOptions whole) {
    whole.isPart = true;
    return whole;
}

}  // namespace

std::shared_ptr<Carried> CarriedRoom::Take() {
    const std::lock_guard lock(mutex_);
    if (spare_.empty()) return std::make_shared<Carried>();
    auto room = std::move(spare_.back());
    spare_.pop_back();
    return room;
}

// Room for what is unusually long is not kept.
void CarriedRoom::GiveBack(std::shared_ptr<Carried> room) {
    constexpr std::size_t kMost = std::size_t{2} << 20;
    if (room->written.Capacity() > kMost) return;
    room->written.Clear();
    room->rejected.Clear();
    const std::lock_guard lock(mutex_);
    spare_.push_back(std::move(room));
}

CarrierWorker::CarrierWorker(const CarrierOptions& options, const Form& form,
                             const WriterOptions& writing, Reporter& reporter, Steps& steps,
                             Ends ends)
    : steps_(steps),
      ends_(std::move(ends)),
      writer_(form.makeWriter(output_, PartOf(writing))),
      carrier_(options, *writer_, Memory(options, rejected_), reporter) {}

void CarrierWorker::Take(Item& item) {
    written_.Stay(item.bytes);
    rejected_.Stay(item.bytes);
    carrier_.Take(item);
}

void CarrierWorker::EndBatch() {
    ends_.endBatch();
    const auto carried = ends_.room.Take();
    carried->totals = carrier_.TakeTotals();
    std::swap(carried->written, written_);
    std::swap(carried->rejected, rejected_);
    steps_.emplace_back([&ends = ends_, carried] {
        ends.carrier.Add(carried->totals, carried->rejected);
        ends.output.Write(carried->written);
        ends.room.GiveBack(carried);
    });
}

}  // namespace quillory

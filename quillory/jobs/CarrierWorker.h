#pragma once

#include <quillory/exchange/Form.h>
#include <quillory/exchange/Pieces.h>
#include <quillory/jobs/Carrier.h>
#include <quillory/jobs/ItemWorker.h>

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace quillory {

// What a worker carried, on its way to where all of it goes.
struct Carried {
    CarrierTotals totals;
    Pieces written;
    Pieces rejected;
};

// Room for what is carried, used again and again by several threads.
class CarriedRoom {
public:
    std::shared_ptr<Carried> Take();
    void GiveBack(std::shared_ptr<Carried> room);

private:
    std::mutex mutex_;
    std::vector<std::shared_ptr<Carried>> spare_;
};

// Carries records into memory, as its share of the work of a carrier and its output.
class CarrierWorker : public ItemWorker {
public:
    // What is called after each batch, and where what was carried goes to.
    struct Ends {
        std::function<void()> endBatch;
        Carrier& carrier;
        Output& output;
        CarriedRoom& room;
    };

    CarrierWorker(const CarrierOptions& options, const Form& form, const WriterOptions& writing,
                  Reporter& reporter, Steps& steps, Ends ends);

    void Take(Item& item) override;
    void EndBatch() override;

private:
    Steps& steps_;
    Ends ends_;
    Pieces written_;
    Pieces rejected_;
    Output output_{Output::kToMemory, written_};
    std::unique_ptr<RecordWriter> writer_;
    Carrier carrier_;
};

}  // namespace quillory

#pragma once

#include <quillory/exchange/Form.h>
#include <quillory/jobs/Carrier.h>
#include <quillory/jobs/ItemWorker.h>

#include <memory>
#include <string>

namespace quillory {

// Carries records into memory, as its share of the work of a carrier and its output.
class CarrierWorker : public ItemWorker {
public:
    // Where what was carried goes to.
    struct Ends {
        Carrier& carrier;
        Output& output;
    };

    CarrierWorker(const CarrierOptions& options, const Form& form, const WriterOptions& writing,
                  Reporter& reporter, Steps& steps, Ends ends);

    void Take(Item& item) override { carrier_.Take(item); }
    void EndBatch() override;

private:
    Steps& steps_;
    Ends ends_;
    std::string bytes_;
    std::string rejectedBytes_;
    Output output_{Output::kToMemory, bytes_};
    std::unique_ptr<RecordWriter> writer_;
    Carrier carrier_;
};

}  // namespace quillory

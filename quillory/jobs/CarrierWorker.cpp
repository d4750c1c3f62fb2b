#include <quillory/jobs/CarrierWorker.h>

#include <utility>

namespace quillory {
namespace {

std::unique_ptr<Output> Memory(const CarrierOptions& options, std::string& bytes) {
    if (options.rejects.empty()) return nullptr;
    return std::make_unique<Output>(Output::kToMemory, bytes);
}

WriterOptions PartOf(WriterOptions whole) {
    whole.isPart = true;
    return whole;
}

}  // namespace

CarrierWorker::CarrierWorker(const CarrierOptions& options, const Form& form,
                             const WriterOptions& writing, Reporter& reporter, Steps& steps,
                             Ends ends)
    : steps_(steps),
      ends_(ends),
      writer_(form.makeWriter(output_, PartOf(writing))),
      carrier_(options, *writer_, Memory(options, rejectedBytes_), reporter) {}

void CarrierWorker::EndBatch() {
    output_.Flush();
    carrier_.FlushRejects();
    steps_.emplace_back([ends = ends_, totals = carrier_.TakeTotals(),
                         bytes = std::exchange(bytes_, {}),
                         rejects = std::exchange(rejectedBytes_, {})] {
        ends.carrier.Add(totals, rejects);
        ends.output.Write(bytes);
    });
}

}  // namespace quillory

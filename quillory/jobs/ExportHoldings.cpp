#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/ByteSize.h>
#include <quillory/jobs/ExportHoldings.h>

#include <algorithm>

namespace quillory {
namespace {

void CheckFile(const HoldingsFile& file, const std::vector<std::string>& files) {
    if (file.HasRecordNumbers() && files.size() > 1) {
        throw UsageError(file.Name(), {FaultCode::kHoldingsNumberFiles});
    }
}

void CheckStandardInput(const std::string& path, const std::vector<std::string>& files) {
    const bool isTaken = files.empty() || std::ranges::count(files, "-") != 0;
    if (path == "-" && isTaken) {
        throw UsageError({FaultCode::kHoldingsFromStandardInput});
    }
}

}  // namespace

bool ChooseHoldingsType(const HoldingsOptions& options) {
    if (options.type.empty()) return false;
    PutInForce(*HoldingsSystemNamed(options.type).type);
    return true;
}

ExportHoldings::ExportHoldings(const HoldingsOptions& options,
                               const std::vector<std::string>& files)
    : to_(HoldingsSystemInForce()) {
    from_ = options.from.empty() ? to_ : HoldingsSystemNamed(options.from);
    if (!options.file.empty()) {
        CheckStandardInput(options.file, files);
        file_ = std::make_unique<HoldingsFile>(options.file, to_,
                                               ParseByteSize("--memory", options.memory));
        CheckFile(*file_, files);
    }
}

std::unique_ptr<RecordHoldings> ExportHoldings::MakeWriter() const {
    return std::make_unique<RecordHoldings>(from_, to_, file_.get());
}

Status ExportHoldings::SayUnused(Reporter& reporter) const {
    if (!file_) return kStatusWell;
    Status status = kStatusWell;
    reporter.BeginFile(file_->Name());
    for (const auto& [line, key] : file_->UnusedLines()) {
        const Fault fault = {FaultCode::kHoldingsUnusedLine, {}, key};
        reporter.SayCounted(
            "lines without a record",
            file_->Name() + ": line " + std::to_string(line) + ": " + FaultReason(fault));
        status = kStatusFindings;
    }
    reporter.EndFile();
    return status;
}

}  // namespace quillory

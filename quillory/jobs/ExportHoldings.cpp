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
    const std::uint64_t most = ParseByteSize("--memory", options.memory);
    if (!options.file.empty()) {
        CheckStandardInput(options.file, files);
        file_ = std::make_unique<HoldingsFile>(options.file, to_, most);
        CheckFile(*file_, files);
    }
}

std::unique_ptr<RecordHoldings> ExportHoldings::MakeWriter() const {
    return std::make_unique<RecordHoldings>(from_, to_, file_.get());
}

void ExportHoldings::SayLine(std::string_view kind, std::uint64_t line, const Fault& fault,
                             Reporter& reporter) const {
    reporter.SayCounted(
        kind, file_->Name() + ": line " + std::to_string(line) + ": " + FaultReason(fault));
}

void ExportHoldings::SayDoubts(Reporter& reporter) const {
    if (!file_) return;
    reporter.BeginFile(file_->Name());
    for (const auto& [line, fault] : file_->Doubts()) {
        SayLine(FaultHeading(fault.code), line, fault, reporter);
    }
    reporter.EndFile();
}

void ExportHoldings::PassOver(const Item& item) const {
    if (file_) file_->PassOver(item.record.ControlNumber(), item.number);
}

Status ExportHoldings::SayUnused(Reporter& reporter) const {
    if (!file_) return kStatusWell;
    Status status = kStatusWell;
    std::uint64_t passedOver = 0;
    reporter.BeginFile(file_->Name());
    for (const auto& [line, key, isPassedOver] : file_->UnusedLines()) {
        if (isPassedOver) {
            ++passedOver;
            continue;
        }
        SayLine("lines without a record", line, {FaultCode::kHoldingsUnusedLine, {}, key},
                reporter);
        status = kStatusFindings;
    }
    reporter.EndFile();
    if (passedOver > 0 && !reporter.Quiet()) {
        reporter.Say(file_->Name() + ": " + Counted(passedOver, "line") +
                     " not used, since --where leaves out what would take it");
    }
    return status;
}

}  // namespace quillory

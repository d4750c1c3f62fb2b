#include <quillory/exchange/Input.h>
#include <quillory/jobs/ExportHoldings.h>

#include <algorithm>

namespace quillory {
namespace {

const zorby::CInfoAboutHoldingsType& TypeNamed(const std::string& name) {
    const zorby::CInfoAboutHoldingsType* type = FindHoldingsType(name);
    if (type != nullptr) return *type;
    throw UsageError("there is no holdings type " + name +
                     "; `quillory describe --holdings` lists them");
}

void CheckFile(const HoldingsFile& file, const std::vector<std::string>& files) {
    if (file.HasRecordNumbers() && files.size() > 1) {
        throw UsageError(file.Name() + ": record numbers go with one file of records only");
    }
}

void CheckStandardInput(const std::string& path, const std::vector<std::string>& files) {
    const bool isTaken = files.empty() || std::ranges::count(files, "-") != 0;
    if (path == "-" && isTaken) {
        throw UsageError("records and holdings can't both come from standard input");
    }
}

}  // namespace

bool ChooseHoldingsType(const HoldingsOptions& options) {
    if (options.type.empty()) return false;
    PutInForce(TypeNamed(options.type));
    return true;
}

ExportHoldings::ExportHoldings(const HoldingsOptions& options,
                               const std::vector<std::string>& files)
    : to_(HoldingsSystemInForce()) {
    from_ = options.from.empty() ? to_ : SystemOf(TypeNamed(options.from));
    if (!options.file.empty()) {
        CheckStandardInput(options.file, files);
        file_ = std::make_unique<HoldingsFile>(options.file, to_);
        CheckFile(*file_, files);
    }
    holdings_ = std::make_unique<RecordHoldings>(from_, to_, file_.get());
}

void ExportHoldings::Write(Item& item, Charset charset, Losses& losses) {
    holdings_->Write(item.record, item.number, charset, losses);
}

Status ExportHoldings::SayUnused(Reporter& reporter) const {
    if (!file_) return kStatusWell;
    Status status = kStatusWell;
    reporter.BeginFile(file_->Name());
    file_->TellUnused([&](std::uint64_t line, const std::string& key) {
        reporter.SayCounted(
            "lines without a record",
            file_->Name() + ": line " + std::to_string(line) + ": no record has " + key);
        status = kStatusFindings;
    });
    reporter.EndFile();
    return status;
}

}  // namespace quillory

#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/ExportFiles.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/RecordFilter.h>

#include <algorithm>

namespace quillory {
namespace {

// The character set that records are written in; auto if each keeps its own.
Charset ExportCharset(const ExportOptions& options) {
    const Charset output = CharsetOfOutput(options.output);
    return output != kCharsetAuto ? output : options.input.charset;
}

// The dictionary of the format takes in fields of the holdings system, so it follows the choice.
Checker PutAllInForce(const ExportOptions& options) {
    Checker checker = MakeChecker(options.policy, ExportCharset(options));
    if (!ChooseHoldingsType(options.holdings)) return checker;
    const std::string& userDefined = options.policy.userDefined;
    LoadDictionaries(userDefined);
    return Checker({ExportCharset(options), userDefined.empty()});
}

// Puts the copies into each record, and decides whether it may leave.
class ExportRun {
public:
    ExportRun(const ExportOptions& options, Checker& checker, Reporter& reporter)
        : charset_(ExportCharset(options)),
          checker_(checker),
          reporter_(reporter),
          holdings_(options.holdings, options.input.files) {}

    std::string Prepare(Item& item, Losses& losses) {
        holdings_.Write(item, charset_, losses);
        checker_.Check(item.record, findings_);
        const Verdict verdict = checker_.GetPolicy().VerdictOf(findings_);
        if (verdict == kMustStay) return Lines();
        if (verdict == kMayGoWithWarnings && !reporter_.Quiet()) {
            reporter_.Say(item, {FaultCode::kWrittenWithWarnings}, Lines());
        }
        return {};
    }

    Status SayUnused() { return holdings_.SayUnused(reporter_); }

private:
    std::string Lines() const {
        std::string lines;
        for (const Finding& finding : findings_) lines += "    " + LineText(finding) + "\n";
        return lines;
    }

    Charset charset_;
    Checker& checker_;
    Reporter& reporter_;
    ExportHoldings holdings_;
    std::vector<Finding> findings_;
};

void CheckFiles(const ExportOptions& options) {
    std::vector<std::string> inputs = options.input.files;
    if (!options.holdings.file.empty()) inputs.push_back(options.holdings.file);
    CheckNotAnInput(inputs, options.output.output);
    CheckNotAnInput(inputs, options.output.rejects);
}

}  // namespace

Status ExportFiles(ExportOptions options, Reporter& reporter) {
    options.output.verify = true;
    CheckFiles(options);
    const SettingsKeeper settings;
    Checker checker = PutAllInForce(options);
    std::vector<Finding> findings;
    options.input.where.isValid = [&](const Record& record) {
        return IsValidUnder(checker, record, findings);
    };
    ExportRun run(options, checker, reporter);
    bool readAll = false;
    const ItemSource files = [&](const auto& take) {
        const Status read = ReadFiles(options.input, reporter, take);
        readAll = options.input.where.AsksForAll();
        return read;
    };
    const auto prepare = [&](Item& item, Losses& losses) { return run.Prepare(item, losses); };
    const Status written =
        WriteItems(files, options.input.charset, options.output, reporter, prepare);
    return readAll ? std::max(written, run.SayUnused()) : written;
}

}  // namespace quillory

#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/ExportFiles.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/OutputFiles.h>
#include <quillory/jobs/RecordFilter.h>

#include <algorithm>
#include <memory>

namespace quillory {
namespace {

// The character set that records are written in; auto if each keeps its own.
Charset ExportCharset(const ExportOptions& options) {
    const Charset output = CharsetOfOutput(options.output);
    return output != kCharsetAuto ? output : options.input.charset;
}

// The dictionary of the format takes in fields of the holdings system, so it follows the choice.
CheckerOptions PutAllInForce(const ExportOptions& options) {
    const Checker checker = MakeChecker(options.policy, ExportCharset(options));
    if (ChooseHoldingsType(options.holdings)) LoadDictionaries(options.policy.userDefined);
    return checker.GetOptions();
}

// Puts the copies into each record, and decides whether it may leave.
class Exporter {
public:
    Exporter(Charset charset, const CheckerOptions& checking, const ExportHoldings& holdings,
             Reporter& reporter)
        : charset_(charset),
          checker_(checking),
          holdings_(holdings.MakeWriter()),
          reporter_(reporter) {}

    std::string Prepare(Item& item, Losses& losses) {
        holdings_->Write(item.record, item.number, charset_, losses);
        checker_.Check(item.record, findings_);
        const Verdict verdict = checker_.GetPolicy().VerdictOf(findings_);
        if (verdict == kMustStay) return Lines();
        if (verdict == kMayGoWithWarnings && !reporter_.Quiet()) {
            reporter_.Say(item, {FaultCode::kWrittenWithWarnings}, Lines());
        }
        return {};
    }

private:
    std::string Lines() const {
        std::string lines;
        for (const Finding& finding : findings_) lines += "    " + LineText(finding) + "\n";
        return lines;
    }

    Charset charset_;
    Checker checker_;
    std::unique_ptr<RecordHoldings> holdings_;
    Reporter& reporter_;
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
    const CheckerOptions checking = PutAllInForce(options);
    options.input.where.isValid = ValidityUnder(checking);
    const ExportHoldings holdings(options.holdings, options.input.files);
    const auto prepare = [&](Reporter& own) -> Preparation {
        const auto exporter =
            std::make_shared<Exporter>(ExportCharset(options), checking, holdings, own);
        return [exporter](Item& item, Losses& losses) { return exporter->Prepare(item, losses); };
    };
    holdings.SayDoubts(reporter);
    options.input.passOver = [&holdings](const Item& item) { holdings.PassOver(item); };
    bool readAll = false;
    const ItemSource files = [&](const auto& take) {
        const Status read = ReadFiles(options.input, reporter, take);
        readAll = true;
        return read;
    };
    const Status written =
        WriteItems(files, options.input.charset, options.output, reporter, prepare(reporter),
                   [&](Reporter& own, Steps&) { return PreparationShare{prepare(own)}; });
    return readAll ? std::max(written, holdings.SayUnused(reporter)) : written;
}

}  // namespace quillory

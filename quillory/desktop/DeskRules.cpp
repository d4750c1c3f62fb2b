#include <quillory/desktop/DeskRules.h>
#include <quillory/jobs/RecordFilter.h>

#include <algorithm>

namespace quillory {
namespace {

// A record is looked at again and again: that its numbers are there already says nothing.
RuleWeights WeightsForOne(RuleWeights weights) {
    RuleChoice choice;
    for (const RuleId rule : {RuleId::ControlNumberRepeated, RuleId::NumberRepeated}) {
        choice.skip.emplace_back(RuleOf(rule).name);
    }
    weights.Choose(choice);
    return weights;
}

}  // namespace

DeskRules::DeskRules(const CodeLists& lists, const std::optional<std::string>& file)
    : file_(file),
      checker_(CheckerOptions{}),
      settings_(CheckSettingsFile(file).Read(
          {kCharsetAuto,
           [this](const Record& record) { return IsValidUnder(checker_, record, findings_); }})),
      weights_(settings_.choice, settings_.own.List()),
      inspector_(checker_.GetOptions(), WeightsForOne(weights_), lists, &settings_.own) {
    weights_.Follow(checker_.GetPolicy());
}

std::vector<Remark> DeskRules::Check(const Record& record) {
    std::vector<Remark> remarks;
    inspector_.Inspect(record, 1, remarks);
    std::ranges::stable_sort(remarks, {}, &Remark::severity);
    return remarks;
}

}  // namespace quillory

#include <quillory/desktop/Desk.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/RecordPolicy.h>
#include <zorby/settings/Profile.h>
#include <zorby/settings/ProfileKeys.h>

#include <algorithm>
#include <string>

namespace quillory {
namespace {

// A record is looked at again and again: that its numbers are there already says nothing.
RuleWeights WeightsForOne() {
    RuleChoice choice;
    for (const RuleId rule : {RuleId::ControlNumberRepeated, RuleId::NumberRepeated}) {
        choice.skip.emplace_back(RuleOf(rule).name);
    }
    return RuleWeights(choice);
}

CodeLists ListsWithWorkforms() {
    LoadWorkforms();
    return LoadCodeLists();
}

}  // namespace

Desk::Desk()
    : checker_(MakeChecker({}, kCharsetAuto)),
      lists_(ListsWithWorkforms()),
      inspector_(checker_.GetOptions(), WeightsForOne(), lists_) {}

std::vector<Remark> Desk::Check(const Record& record) {
    std::vector<Remark> remarks;
    inspector_.Inspect(record, 1, remarks);
    std::ranges::stable_sort(remarks, {}, &Remark::severity);
    return remarks;
}

zorby::EDISPLAYOPTIONS Desk::Display() const {
    return static_cast<zorby::EDISPLAYOPTIONS>(
        zorby::GetZorbyProfileInt(zorby::ZP_DisplayNameOrMARC));
}

void Desk::SetDisplay(zorby::EDISPLAYOPTIONS display) {
    WriteSetting(zorby::ZP_DisplayNameOrMARC, std::to_string(display));
}

}  // namespace quillory

#include <quillory/jobs/Library.h>
#include <quillory/jobs/NewRecordRemarks.h>

namespace quillory {
namespace {

RuleWeights WeightsOfNewRecords() {
    RuleChoice choice;
    choice.only = {"no-title",
                   "many-titles",
                   "undefined",
                   "not-repeatable",
                   "indicator-undefined",
                   "second-main-entry-100",
                   "second-main-entry-110",
                   "second-main-entry-111",
                   "second-main-entry-130",
                   "isbn-invalid",
                   "issn-invalid",
                   "standard-number-invalid",
                   "url-malformed",
                   "nonfiling-count",
                   "date-against-type"};
    return RuleWeights(choice);
}

}  // namespace

NewRecordRemarks::NewRecordRemarks(Reporter& reporter)
    : reporter_(reporter),
      lists_(LoadCodeLists()),
      inspector_({kCharsetUtf8, true}, WeightsOfNewRecords(), lists_) {}

void NewRecordRemarks::Say(const Item& item) {
    inspector_.Inspect(item.record, item.number, remarks_);
    for (const Remark& remark : remarks_) {
        reporter_.Say(item, remark.rule->name, [&remark] { return RemarkLine(remark); });
    }
}

}  // namespace quillory

#include <quillory/coded/Material.h>
#include <quillory/jobs/CheckReport.h>

namespace quillory {

void CheckTotals::Count(const CheckedRecord& record) {
    ++records;
    ++verdicts[static_cast<std::size_t>(record.verdict)];
    for (const Finding& finding : record.findings) ++findings[finding.code];
    const std::string material = MaterialText(record.item.record.leader);
    ++materials[material][static_cast<std::size_t>(record.verdict)];
}

}  // namespace quillory

#include <quillory/cli/CheckReport.h>
namespace quillory {
std::unique_ptr<CheckReport> MakeHtmlCheckReport(std::unique_ptr<Output> output, std::uint64_t,
                                                 Reporter& reporter) {
    return MakeTextCheckReport(std::move(output), reporter);
}
}  // namespace quillory

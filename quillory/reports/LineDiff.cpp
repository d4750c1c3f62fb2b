#include <quillory/reports/LineDiff.h>
#include <quillory/text/CommonSequence.h>

#include <span>

namespace quillory {

std::vector<LineOfDiff> DiffOf(const std::vector<std::string>& before,
                               const std::vector<std::string>& after) {
    std::vector<LineOfDiff> diff;
    std::size_t gone = 0;
    std::size_t come = 0;
    const auto addUpTo = [&](std::size_t endOfGone, std::size_t endOfCome) {
        while (gone < endOfGone) diff.push_back({false, before[gone++]});
        while (come < endOfCome) diff.push_back({true, after[come++]});
    };
    ForEachCommon<std::string>(before, after, [&](std::size_t i, std::size_t k) {
        addUpTo(i, k);
        gone = i + 1;
        come = k + 1;
    });
    addUpTo(before.size(), after.size());
    return diff;
}

}  // namespace quillory

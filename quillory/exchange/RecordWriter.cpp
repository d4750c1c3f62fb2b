#include <quillory/exchange/RecordWriter.h>

#include <utility>

namespace quillory {

WriteResult NotWritten(Fault fault) {
    WriteResult result{false};
    result.faults.push_back(std::move(fault));
    return result;
}

std::string_view MendLeader(std::string_view leader, std::string& mended) {
    constexpr std::string_view kCounts = "22";
    constexpr std::string_view kEntryMap = "4500";
    if (leader.substr(zorby::kLeaderIndicatorCount, kCounts.size()) == kCounts &&
        leader.substr(zorby::kLeaderEntryMap, kEntryMap.size()) == kEntryMap) {
        return leader;
    }
    mended = leader;
    mended.replace(zorby::kLeaderIndicatorCount, kCounts.size(), kCounts);
    mended.replace(zorby::kLeaderEntryMap, kEntryMap.size(), kEntryMap);
    return mended;
}

}  // namespace quillory

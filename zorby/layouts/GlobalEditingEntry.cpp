#include <zorby/controlfields/detail/CodeMenu.h>
#include <zorby/layouts/GlobalEditing.h>
#include <zorby/layouts/detail/GlobalEditOrder.h>

#include <cstdint>
#include <iterator>
#include <unordered_map>

namespace zorby {
namespace {

using RankOfMenu = std::unordered_map<CodeMenu, int>;

RankOfMenu MakeRanks() {
    RankOfMenu ranks;
    for (const CFPart part : kGlobalEditOrder) {
        ranks.emplace(FindCodeMenu(part), static_cast<int>(ranks.size()));
    }
    return ranks;
}

// A menu that is not in the order ranks last.
int RankOf(CodeMenu menu) {
    static const RankOfMenu ranks = MakeRanks();
    const auto rank = ranks.find(menu);
    return rank == ranks.end() ? static_cast<int>(std::size(kGlobalEditOrder)) : rank->second;
}

}  // namespace

int CCFGlobalEditingEntry::CCFGlobalEditingEntryCompare(const CCFGlobalEditingEntry& first,
                                                        const CCFGlobalEditingEntry& second) {
    const CFPart firstPart = first.row_->PartNumber();
    const CFPart secondPart = second.row_->PartNumber();
    const CodeMenu firstMenu = FindCodeMenu(firstPart);
    const CodeMenu secondMenu = FindCodeMenu(secondPart);
    if (firstMenu != nullptr && secondMenu != nullptr) {
        return RankOf(firstMenu) - RankOf(secondMenu);
    }
    if (firstMenu != nullptr) return 1;
    if (secondMenu != nullptr) return -1;
    return static_cast<int>((std::int64_t{firstPart} - secondPart) >> 2);
}

}  // namespace zorby

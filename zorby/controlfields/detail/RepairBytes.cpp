#include <zorby/controlfields/MenuData.h>
#include <zorby/controlfields/OffsetTables.h>
#include <zorby/controlfields/detail/PartBytes.h>
#include <zorby/controlfields/detail/RepairBytes.h>
#include <zorby/controlfields/detail/RepairRules.h>

#include <algorithm>
#include <array>
#include <bitset>
#include <cstdint>
#include <iterator>
#include <vector>

namespace zorby::detail {
namespace {

using ByteSet = std::bitset<256>;

void Add(std::string_view bytes, ByteSet& set) {
    for (const char byte : bytes) set.set(static_cast<unsigned char>(byte));
}

// The codes of a menu as they stand in an element, if each of them is one byte of it; all bytes for
// an element that has none, and is left alone.
ByteSet CodesOf(CFPart part) {
    ByteSet set;
    const CCFMenuData menu(part);
    if (menu.GetMenuTitle() == nullptr) return set.set();
    const bool isOfSeveral =
        std::find(std::begin(kPartsOfSeveralCodes), std::end(kPartsOfSeveralCodes), part) !=
        std::end(kPartsOfSeveralCodes);
    if (!isOfSeveral && WidthOfPart(part) != 1) return set;
    for (int byte = 0; byte < 256; ++byte) {
        const char code = static_cast<char>(byte);
        if (menu.GetIndexFromCode({&code, 1}) >= 0) set.set(static_cast<std::size_t>(byte));
    }
    if (isOfSeveral) Add({&kBlank, 1}, set);
    return set;
}

class ValidBytes {
public:
    ValidBytes() {
        for (std::size_t number = 1; number < sets_.size(); ++number) {
            const auto part = static_cast<CFPart>(number);
            if (!HasRule(part)) sets_[number] = CodesOf(part);
        }
        for (const KeptBytes& row : kKeptBytes) Add(row.kept, sets_[IndexOf(row.part)]);
        // Of a forced value all bytes are the same.
        for (const ForcedValue& row : kForcedValues) Add(row.value, sets_[IndexOf(row.part)]);
    }

    const ByteSet& Of(CFPart part) const { return sets_[IndexOf(part)]; }

private:
    // One that goes by more than the bytes and the code menu.
    static bool HasRule(CFPart part) {
        const auto isOfPart = [part](const auto& row) { return row.part == part; };
        return std::find(std::begin(kPartsWithOwnRules), std::end(kPartsWithOwnRules), part) !=
                   std::end(kPartsWithOwnRules) ||
               std::any_of(std::begin(kPartsByMaterial), std::end(kPartsByMaterial), isOfPart) ||
               std::any_of(std::begin(kValuesByMaterial), std::end(kValuesByMaterial), isOfPart) ||
               std::any_of(std::begin(kForcedValues), std::end(kForcedValues), isOfPart) ||
               std::any_of(std::begin(kKeptBytes), std::end(kKeptBytes), isOfPart);
    }

    // Undefined positions come first; no element that is tested lies beyond.
    static std::size_t IndexOf(CFPart part) {
        return part > 0 && part < static_cast<int>(kSize) ? static_cast<std::size_t>(part) : 0;
    }

    static constexpr std::size_t kSize = CFPCombinedFormOfItem;
    std::vector<ByteSet> sets_ = std::vector<ByteSet>(kSize);
};

}  // namespace

bool HasOnlyValidBytes(CFPart part, std::string_view bytes) {
    static const ValidBytes validBytes;
    const ByteSet& set = validBytes.Of(part);
    return std::all_of(bytes.begin(), bytes.end(),
                       [&](char byte) { return set[static_cast<unsigned char>(byte)]; });
}

}  // namespace zorby::detail

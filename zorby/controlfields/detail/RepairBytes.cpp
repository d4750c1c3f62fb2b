#include <zorby/controlfields/MenuData.h>
#include <zorby/controlfields/detail/PartBytes.h>
#include <zorby/controlfields/detail/RepairBytes.h>
#include <zorby/controlfields/detail/RepairRules.h>
#include <zorby/elements/OffsetTables.h>

#include <algorithm>
#include <iterator>
#include <string>

namespace zorby {
namespace {

constexpr std::size_t kLongestCode = 6;

void Add(std::string_view bytes, std::bitset<256>& set) {
    for (const char byte : bytes) set.set(static_cast<unsigned char>(byte));
}

bool IsOfSeveralCodes(CFPart part) {
    return std::find(std::begin(kPartsOfSeveralCodes), std::end(kPartsOfSeveralCodes), part) !=
           std::end(kPartsOfSeveralCodes);
}

// Returns whether an element has other rules than its code menu.
bool HasRule(CFPart part) {
    const auto isOfPart = [part](const auto& row) { return row.part == part; };
    return std::find(std::begin(kPartsWithOwnRules), std::end(kPartsWithOwnRules), part) !=
               std::end(kPartsWithOwnRules) ||
           std::any_of(std::begin(kPartsByMaterial), std::end(kPartsByMaterial), isOfPart) ||
           std::any_of(std::begin(kValuesByMaterial), std::end(kValuesByMaterial), isOfPart) ||
           std::any_of(std::begin(kForcedValues), std::end(kForcedValues), isOfPart) ||
           std::any_of(std::begin(kKeptBytes), std::end(kKeptBytes), isOfPart);
}

// Packs an element and a code into one number.
std::uint64_t KeyOf(CFPart part, std::string_view code) {
    auto key = static_cast<std::uint64_t>(part);
    for (const char byte : code) key = key << 8 | static_cast<unsigned char>(byte);
    return key;
}

}  // namespace

// Returns the bytes that are valid codes by themselves. For an element without a menu all bytes
// are, since a repair leaves it alone.
ValidValues::ByteSet ValidValues::CodesOfOneByte(CFPart part) {
    ByteSet set;
    const CCFMenuData menu(part);
    if (menu.GetMenuTitle() == nullptr) return set.set();
    const bool isOfSeveral = IsOfSeveralCodes(part);
    if (!isOfSeveral && WidthOfPart(part) != 1) return set;
    for (int byte = 0; byte < 256; ++byte) {
        const char code = static_cast<char>(byte);
        if (menu.GetIndexFromCode({&code, 1}) >= 0) set.set(static_cast<std::size_t>(byte));
    }
    if (isOfSeveral) Add({&kBlank, 1}, set);
    return set;
}

// Adds the codes that are as wide as their element.
void ValidValues::AddLongCodes(CFPart part) {
    const CCFMenuData menu(part);
    const auto width = static_cast<std::size_t>(WidthOfPart(part));
    if (width < 2 || width > kLongestCode || IsOfSeveralCodes(part)) return;
    std::string code;
    for (int index = 0; index < menu.GetCount(); ++index) {
        menu.GetCodeFromIndex(index, code);
        if (code.size() == width) codes_.insert(KeyOf(part, code));
    }
}

ValidValues::ValidValues() {
    for (std::size_t number = 1; number < kSize; ++number) {
        const auto part = static_cast<CFPart>(number);
        if (HasRule(part)) continue;
        bytes_[number] = CodesOfOneByte(part);
        AddLongCodes(part);
    }
    for (const KeptBytes& row : kKeptBytes) Add(row.kept, bytes_[IndexOf(row.part)]);
    // All bytes of a forced value are the same.
    for (const ForcedValue& row : kForcedValues) Add(row.value, bytes_[IndexOf(row.part)]);
}

const ValidValues& ValidValues::Get() {
    static const ValidValues values;
    return values;
}

bool ValidValues::HasCode(CFPart part, std::string_view code) const {
    return code.size() <= kLongestCode && codes_.contains(KeyOf(part, code));
}

}  // namespace zorby

#include <zorby/controlfields/MenuData.h>
#include <zorby/controlfields/detail/PartBytes.h>
#include <zorby/controlfields/detail/RepairBytes.h>
#include <zorby/controlfields/detail/RepairChecker.h>
#include <zorby/controlfields/detail/RepairRules.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>

namespace zorby {
namespace {

// The value that an element should have, or nothing if it should be left alone.
using Fix = std::optional<std::string>;

bool Contains(std::string_view bytes, char byte) {
    return bytes.find(byte) != std::string_view::npos;
}

template <class Table, class Value>
bool Contains(const Table& table, Value value) {
    return std::find(std::begin(table), std::end(table), value) != std::end(table);
}

template <class Table>
auto FindRow(const Table& table, CFPart part) {
    const auto* row = std::find_if(std::begin(table), std::end(table),
                                   [part](const auto& r) { return r.part == part; });
    return row == std::end(table) ? nullptr : row;
}

template <class Table>
auto FindRow(const Table& table, CFPart part, MaterialType material) {
    const auto* row = std::find_if(std::begin(table), std::end(table), [&](const auto& r) {
        return r.part == part && r.material == material;
    });
    return row == std::end(table) ? nullptr : row;
}

std::string KeepBytes(std::string_view current, std::string_view kept, char otherwise) {
    std::string fix(current);
    std::replace_if(
        fix.begin(), fix.end(), [kept](char byte) { return !Contains(kept, byte); }, otherwise);
    return fix;
}

std::span<char> BytesOf(const tagCFOFFSETENTRY& row, std::span<char> buffer) {
    return buffer.subspan(static_cast<std::size_t>(row.first),
                          static_cast<std::size_t>(row.Width()));
}

// Checks the elements of one field that are within its buffer.
class PartChecker {
public:
    explicit PartChecker(const RepairTask& task) : task_(task) {}

    void Check(const tagCFOFFSETENTRY& row);

private:
    bool IsTested() const;
    bool IsTestedAsMusic() const;
    CFPart PartForMaterial() const;
    std::string_view Current() const { return {bytes_.data(), bytes_.size()}; }
    Fix Default();

    void CheckCodes(const CCFMenuData& menu);
    void CheckSeveralCodes(const CCFMenuData& menu, std::string fix);
    Fix FixOfCode();
    Fix FixWithoutMenu();
    Fix FixOfMicroform();
    Fix FixForMaterial() const;
    std::string FixOfRunningTime() const;
    void Store(const std::string& fix) { std::copy(fix.begin(), fix.end(), bytes_.begin()); }
    void Report() const {
        if (task_.callback != nullptr) task_.callback(part_, task_.context);
    }

    const RepairTask& task_;
    tagCFOFFSETENTRY row_{};
    CFPart part_{};
    std::span<char> bytes_;
    std::optional<std::string> defaultText_;
};

void PartChecker::Check(const tagCFOFFSETENTRY& row) {
    row_ = row;
    part_ = row.part;
    bytes_ = BytesOf(row, task_.buffer);
    if (!IsTested()) return;
    part_ = PartForMaterial();
    const CCFMenuData menu(part_);
    if (menu.GetMenuTitle() != nullptr) {
        CheckCodes(menu);
        return;
    }
    const Fix fix = FixWithoutMenu();
    if (!fix || Current() == *fix) return;
    Store(*fix);
    Report();
}

bool PartChecker::IsTested() const {
    if (part_ == CFPLdrTypeOfRecordMusic && Contains("cdij", bytes_.front())) return false;
    if (const auto* row = FindRow(kTestedForType, part_)) return row->type006 == task_.type006;
    return FindRow(kTestedForMaterial, part_) == nullptr ||
           FindRow(kTestedForMaterial, part_, task_.material) != nullptr;
}

CFPart PartChecker::PartForMaterial() const {
    const auto* row = FindRow(kPartsByMaterial, part_, task_.material);
    return row == nullptr ? part_ : row->readAs;
}

Fix PartChecker::Default() {
    if (!defaultText_) defaultText_ = task_.defaultText();
    const std::string& text = *defaultText_;
    if (text.size() <= static_cast<std::size_t>(row_.last)) return std::nullopt;
    return text.substr(static_cast<std::size_t>(row_.first), bytes_.size());
}

void PartChecker::CheckCodes(const CCFMenuData& menu) {
    if (menu.GetIndexFromCode(Current()) >= 0) return;
    const Fix fix = FixOfCode();
    if (!fix || Current() == *fix) return;
    if (Contains(kPartsOfSeveralCodes, part_)) {
        CheckSeveralCodes(menu, *fix);
        return;
    }
    Store(*fix);
    Report();
}

Fix PartChecker::FixOfCode() {
    if (part_ != CFP006ComputerFileTypeOfFile) return Default();
    const auto* row = std::find_if(std::begin(kTypesOfComputerFile), std::end(kTypesOfComputerFile),
                                   [this](const auto& r) { return r.material == task_.material; });
    return std::string(row == std::end(kTypesOfComputerFile) ? kOtherTypeOfComputerFile
                                                             : row->code);
}

// If one of the codes is invalid, the valid ones are lost too: the element takes the default, with
// blanks at the positions of the invalid codes.
void PartChecker::CheckSeveralCodes(const CCFMenuData& menu, std::string fix) {
    bool isInvalid = false;
    for (std::size_t i = 0; i < bytes_.size(); ++i) {
        if (bytes_[i] == kBlank || menu.GetIndexFromCode(Current().substr(i, 1)) >= 0) continue;
        isInvalid = true;
        fix[i] = kBlank;
    }
    if (!isInvalid) return;
    Report();
    Store(fix);
}

Fix PartChecker::FixWithoutMenu() {
    if (const auto* forced = FindRow(kForcedValues, part_)) return std::string(forced->value);
    if (const auto* bytes = FindRow(kKeptBytes, part_)) {
        return KeepBytes(Current(), bytes->kept, bytes->otherwise);
    }
    switch (part_) {
        case CFP007GlobeCategory:
            return Default();
        case CFP007MicroformCategory:
        case CFP007MicroformSMD:
        case CFP007MicroformReductionRatio:
            return FixOfMicroform();
        default:
            return FixForMaterial();
    }
}

Fix PartChecker::FixOfMicroform() {
    if (!task_.isMicroform) return std::string(bytes_.size(), kBlank);
    if (part_ == CFP007MicroformCategory) return "h";
    if (part_ == CFP007MicroformReductionRatio) return KeepBytes(Current(), kDigits, '-');
    return Contains(kMicroformDesignations, bytes_.front()) ? std::string(Current()) : Default();
}

Fix PartChecker::FixForMaterial() const {
    if (part_ == CFP006VisualRunningTime && Contains(kMaterialsWithRunningTime, task_.material)) {
        return FixOfRunningTime();
    }
    const auto* row = FindRow(kValuesByMaterial, part_, task_.material);
    if (row == nullptr || Contains(row->kept, bytes_.front())) return std::nullopt;
    return std::string(row->value);
}

std::string PartChecker::FixOfRunningTime() const {
    constexpr std::string_view kKept = "0123456789n-";
    constexpr const char* kUnknown = "---";
    const bool hasNoneToKeep = Current().find_first_of(kKept) == std::string_view::npos;
    return hasNoneToKeep ? kUnknown : KeepBytes(Current(), kKept, '0');
}

}  // namespace

void CheckPartsAgainstDefaults(const RepairTask& task) {
    if (task.table == nullptr) return;
    const ValidValues& validValues = ValidValues::Get();
    PartChecker checker(task);
    const tagCFOFFSETENTRY* row = task.table + (task.firstRow == FirstRow::Skipped ? 1 : 0);
    for (; row->part != CFPEndOfTable; ++row) {
        if (static_cast<std::size_t>(row->last) >= task.buffer.size()) continue;
        const std::span<char> bytes = BytesOf(*row, task.buffer);
        if (!validValues.Has(row->part, {bytes.data(), bytes.size()})) checker.Check(*row);
    }
}

}  // namespace zorby

#include <quillory/holdings/HoldingsColumn.h>
#include <quillory/places/Tag.h>
#include <quillory/text/QmText.h>
#include <zorby/format/MARCFormat.h>

#include <algorithm>
#include <string>

namespace quillory {
namespace {

std::optional<HoldingsColumn> Element(const zorby::CInfoAboutHoldingsField& info) {
    return HoldingsColumn{info.GetHoldingsID(), 0, 0};
}

char Lower(char c) {
    return 'A' <= c && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

bool SameName(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, Lower, Lower);
}

// "852$z" or "852z".
std::optional<HoldingsColumn> FindPlace(const HoldingsSystem& system, std::string_view name) {
    const std::string_view tag = name.substr(0, kTagSize);
    std::string_view code = name.substr(tag.size());
    if (code.size() == 2 && code[0] == '$') code.remove_prefix(1);
    if (code.size() != 1 || zorby::CMARCFormat::IsAnyValidSubfield(code[0]) == 0) return {};
    if (!system.HasTag(tag)) return {};
    return HoldingsColumn{{}, std::stoi(std::string(tag)), code[0]};
}

}  // namespace

std::optional<HoldingsColumn> FindColumn(const HoldingsSystem& system, std::string_view name) {
    const int elements = system.type != nullptr ? system.type->GetSize() : 0;
    for (int i = 0; i < elements; ++i) {
        const zorby::CInfoAboutHoldingsField& info = *system.type->GetAt(i);
        const bool isNumber = name == std::to_string(info.GetHoldingsID());
        if (isNumber || SameName(name, QmToUtf8(info.GetName()))) return Element(info);
    }
    return FindPlace(system, name);
}

bool AddValue(const HoldingsColumn& column, std::string_view value,
              zorby::CHoldingsDataRecord& copy) {
    if (column.tag != 0) {
        copy.AddHoldingItemHold(column.tag, column.code, value);
        return true;
    }
    const int before = copy.GetSize();
    copy.Add(column.element, value, 1, 0);
    return copy.GetSize() > before;
}

}  // namespace quillory

#include <quillory/holdings/CompositeText.h>
#include <quillory/holdings/HoldingsColumn.h>
#include <quillory/text/Ascii.h>
#include <quillory/text/QmText.h>
#include <zorby/format/MARCFormat.h>

#include <algorithm>
#include <string>

namespace quillory {
namespace {

bool SameName(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, LowerAscii, LowerAscii);
}

// "852$z" or "852z".
std::optional<HoldingsColumn> FindSubfield(const HoldingsSystem& system, std::string_view name) {
    const std::optional<Place> place = ParsePlace(name);
    if (!place || place->code == '\0' || place->occurrence != 0) return {};
    if (!system.HasTag(place->Tag())) return {};
    if (zorby::CMARCFormat::IsAnyValidSubfield(place->code) == 0) return {};
    return HoldingsColumn{{}, *place};
}

}  // namespace

const zorby::CInfoAboutHoldingsField* FindElement(const HoldingsSystem& system,
                                                  std::string_view name) {
    const int elements = system.type != nullptr ? system.type->GetSize() : 0;
    for (int i = 0; i < elements; ++i) {
        const zorby::CInfoAboutHoldingsField* info = system.type->GetAt(i);
        const bool isNumber = name == std::to_string(info->GetHoldingsID());
        if (isNumber || SameName(name, QmToUtf8(info->GetName()))) return info;
    }
    return nullptr;
}

std::optional<HoldingsColumn> FindColumn(const HoldingsSystem& system, std::string_view name) {
    if (const auto* element = FindElement(system, name)) {
        return HoldingsColumn{element->GetHoldingsID()};
    }
    return FindSubfield(system, name);
}

bool AddValue(const HoldingsColumn& column, std::string_view value,
              zorby::CHoldingsDataRecord& copy) {
    if (!column.place.IsRecord()) {
        copy.AddHoldingItemHold(static_cast<int>(column.place.Number()), column.place.code, value);
        return true;
    }
    const auto* element = zorby::CInfoAboutHoldingsTypeList::FindFromID(column.element);
    if (element != nullptr && !FitsItsElement(*element, value)) return false;
    const int before = copy.GetSize();
    copy.Add(column.element, value, 1, 0);
    return copy.GetSize() > before;
}

}  // namespace quillory

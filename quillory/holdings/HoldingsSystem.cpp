#include <quillory/holdings/HoldingsSystem.h>
#include <quillory/holdings/HoldingsTags.h>
#include <quillory/places/Tag.h>
#include <quillory/text/QmText.h>
#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/ini/KeysNValues.h>
#include <zorby/platform/PortInForce.h>
#include <zorby/settings/Profile.h>

#include <algorithm>
#include <charconv>

namespace quillory {
namespace {

using zorby::CHoldingsSelector;
using zorby::CInfoAboutHoldingsType;
using zorby::CInfoAboutHoldingsTypeList;

// 0 for what is no tag of a data field.
unsigned TagOf(std::string_view text) {
    const char* begin = text.data();
    unsigned tag = 0;
    const bool isNumber =
        text.size() == 3 && std::from_chars(begin, begin + 3, tag).ptr == begin + 3;
    return isNumber && tag >= kFirstDataTag ? tag : 0;
}

}  // namespace

bool HoldingsSystem::HasTag(std::string_view tag) const {
    const unsigned number = TagOf(tag);
    return number != 0 && std::ranges::count(tags, number) != 0;
}

HoldingsSystem HoldingsSystemInForce() {
    const CInfoAboutHoldingsType* type = CHoldingsSelector::GetCurrentHoldingsType();
    if (type != nullptr) return SystemOf(*type);
    return {nullptr, zorby::HT_CUSTOM, QmToUtf8(CHoldingsSelector::GetCurrentHoldingsTypeName()),
            HoldingsTags(nullptr)};
}

HoldingsSystem SystemOf(const CInfoAboutHoldingsType& type) {
    return {&type, type.GetHoldingsTypeID(), QmToUtf8(type.GetName()), HoldingsTags(&type)};
}

const CInfoAboutHoldingsType* FindHoldingsType(const std::string& name) {
    constexpr std::size_t kMostDigits = 3;
    const bool isNumber = !name.empty() && name.size() <= kMostDigits &&
                          name.find_first_not_of("0123456789") == name.npos;
    if (isNumber) {
        return CInfoAboutHoldingsTypeList::FindFromType(
            static_cast<zorby::EHOLDINGSTYPE>(std::stoi(name)));
    }
    std::string qm;
    return Utf8ToQm(name, qm) ? CInfoAboutHoldingsTypeList::FindFromName(qm) : nullptr;
}

// Written as ever, but for the file.
void PutInForce(const CInfoAboutHoldingsType& type) {
    std::string text;
    zorby::GetZorbyProfileString(zorby::ZP_NewHoldings, text);
    zorby::CKeysNValues settings;
    settings.Set(text, true);
    settings.SetKey("EasyOrCustom", "Easy");
    settings.SetKey("HoldingsType", type.GetName());
    zorby::MemoryProfileFiles memory;
    const zorby::ProfileFilesInForce inForce(memory);
    zorby::WriteZorbyProfileString(zorby::ZP_NewHoldings, settings.Get());
}

}  // namespace quillory

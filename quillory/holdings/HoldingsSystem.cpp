#include <quillory/exchange/QmText.h>
#include <quillory/holdings/HoldingsSystem.h>
#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/platform/ProfileFilePort.h>
#include <zorby/settings/KeysNValues.h>
#include <zorby/settings/Profile.h>

#include <algorithm>
#include <charconv>
#include <sstream>

namespace quillory {
namespace {

using zorby::CHoldingsSelector;
using zorby::CInfoAboutHoldingsType;
using zorby::CInfoAboutHoldingsTypeList;

void AddTag(unsigned tag, std::vector<unsigned>& tags) {
    if (std::ranges::count(tags, tag) == 0) tags.push_back(tag);
}

// 0 for what is no tag of a data field.
unsigned TagOf(std::string_view text) {
    constexpr unsigned kFirstDataTag = 10;
    const char* begin = text.data();
    unsigned tag = 0;
    const bool isNumber =
        text.size() == 3 && std::from_chars(begin, begin + 3, tag).ptr == begin + 3;
    return isNumber && tag >= kFirstDataTag ? tag : 0;
}

// Of places such as "852khim 949d".
void AddTagsOfPlaces(const std::string& places, std::vector<unsigned>& tags) {
    std::istringstream stream(places);
    for (std::string place; stream >> place;) {
        if (const unsigned tag = TagOf(place.substr(0, 3)); tag != 0) AddTag(tag, tags);
    }
}

std::vector<unsigned> CustomTags() {
    std::vector<unsigned> tags;
    AddTagsOfPlaces(CHoldingsSelector::GetCustomHoldingsFieldsAndSubfields(), tags);
    AddTagsOfPlaces(CHoldingsSelector::GetCustomCallNumber(), tags);
    AddTagsOfPlaces(CHoldingsSelector::GetCustomBarCode(), tags);
    return tags;
}

std::vector<unsigned> TagsOf(const CInfoAboutHoldingsType& type) {
    std::vector<unsigned> tags;
    for (int i = 0; i < type.GetSize(); ++i) AddTag(type.GetAt(i)->GetTag(), tags);
    return tags;
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
            CustomTags()};
}

HoldingsSystem SystemOf(const CInfoAboutHoldingsType& type) {
    return {&type, type.GetHoldingsTypeID(), QmToUtf8(type.GetName()),
            type.GetSize() > 0 ? TagsOf(type) : CustomTags()};
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
    zorby::ProfileFilePort& files = zorby::CurrentProfileFilePort();
    zorby::MemoryProfileFiles memory;
    zorby::SetProfileFilePort(&memory);
    zorby::WriteZorbyProfileString(zorby::ZP_NewHoldings, settings.Get());
    zorby::SetProfileFilePort(&files);
}

}  // namespace quillory

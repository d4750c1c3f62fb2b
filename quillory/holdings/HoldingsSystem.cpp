#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/holdings/HoldingsSystem.h>
#include <quillory/places/Tag.h>
#include <quillory/text/NearestNames.h>
#include <quillory/text/QmText.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/ini/KeysNValues.h>
#include <zorby/platform/PortInForce.h>
#include <zorby/settings/Profile.h>

#include <algorithm>

namespace quillory {
namespace {

using zorby::CHoldingsSelector;
using zorby::CInfoAboutHoldingsType;
using zorby::CInfoAboutHoldingsTypeList;

void AddTag(unsigned tag, std::vector<unsigned>& tags) {
    const bool isDataTag = kFirstDataTag <= tag && tag < kTags;
    if (isDataTag && std::ranges::count(tags, tag) == 0) tags.push_back(tag);
}

// The tags of all places that the settings name, such as "852khim 949d".
std::vector<unsigned> TagsOfSettings() {
    std::vector<std::string> entries;
    for (const std::string& places :
         {CHoldingsSelector::GetCustomHoldingsFieldsAndSubfields(),
          CHoldingsSelector::GetCustomCallNumber(), CHoldingsSelector::GetCustomBarCode()}) {
        zorby::CMARCFormat::ParseUDSubfields(places, entries, 1);
    }
    std::vector<unsigned> tags;
    for (const std::string& entry : entries) AddTag(TagNumber(entry.substr(0, kTagSize)), tags);
    return tags;
}

std::vector<unsigned> TagsOf(const CInfoAboutHoldingsType& type) {
    std::vector<unsigned> tags;
    for (int i = 0; i < type.GetSize(); ++i) AddTag(type.GetAt(i)->GetTag(), tags);
    return tags;
}

}  // namespace

bool HoldingsSystem::HasTag(std::string_view tag) const {
    return std::ranges::count(tags, TagNumber(tag)) != 0;
}

HoldingsSystem HoldingsSystemInForce() {
    const CInfoAboutHoldingsType* type = CHoldingsSelector::GetCurrentHoldingsType();
    if (type != nullptr) return SystemOf(*type);
    return {nullptr, zorby::HT_CUSTOM, QmToUtf8(CHoldingsSelector::GetCurrentHoldingsTypeName()),
            TagsOfSettings()};
}

HoldingsSystem SystemOf(const CInfoAboutHoldingsType& type) {
    return {&type, type.GetHoldingsTypeID(), QmToUtf8(type.GetName()),
            type.GetSize() == 0 ? TagsOfSettings() : TagsOf(type)};
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

HoldingsSystem HoldingsSystemNamed(const std::string& name) {
    if (name.empty()) return HoldingsSystemInForce();
    if (const CInfoAboutHoldingsType* type = FindHoldingsType(name)) return SystemOf(*type);
    throw UsageError({FaultCode::kNoHoldingsType, {}, name, MeantHoldingsType(name)});
}

std::string MeantHoldingsType(const std::string& name) {
    std::vector<std::string> names;
    const auto* types = CInfoAboutHoldingsTypeList::TheOneAndOnly();
    for (int i = 0; types != nullptr && i < types->GetSize(); ++i) {
        names.push_back(QmToUtf8(types->GetAt(i)->GetName()));
    }
    return PerhapsMeant(name, names);
}

std::string NamesOfHoldingsSystems() {
    std::string names;
    const CInfoAboutHoldingsTypeList* list = CInfoAboutHoldingsTypeList::TheOneAndOnly();
    for (int i = 0; list != nullptr && i < list->GetSize(); ++i) {
        const CInfoAboutHoldingsType& type = *list->GetAt(i);
        names.append(i == 0 ? "" : "; ").append(std::to_string(type.GetHoldingsTypeID()));
        names.append(" ").append(QmToUtf8(type.GetName()));
    }
    return names;
}

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

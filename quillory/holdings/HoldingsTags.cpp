#include <quillory/holdings/HoldingsTags.h>
#include <quillory/places/Tag.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/holdings/HoldingsSelector.h>

#include <algorithm>
#include <string>

namespace quillory {
namespace {

using zorby::CHoldingsSelector;

void AddTag(unsigned tag, std::vector<unsigned>& tags) {
    constexpr unsigned kLastTag = 999;
    const bool isDataTag = kFirstDataTag <= tag && tag <= kLastTag;
    if (isDataTag && std::ranges::count(tags, tag) == 0) tags.push_back(tag);
}

// Of all places that the settings name, such as "852khim 949d".
std::vector<unsigned> CustomTags() {
    std::vector<std::string> entries;
    for (const std::string& places :
         {CHoldingsSelector::GetCustomHoldingsFieldsAndSubfields(),
          CHoldingsSelector::GetCustomCallNumber(), CHoldingsSelector::GetCustomBarCode()}) {
        zorby::CMARCFormat::ParseUDSubfields(places, entries, 1);
    }
    std::vector<unsigned> tags;
    for (const std::string& entry : entries) {
        AddTag(static_cast<unsigned>(std::stoul(entry.substr(0, kTagSize))), tags);
    }
    return tags;
}

}  // namespace

std::vector<unsigned> HoldingsTags(const zorby::CInfoAboutHoldingsType* type) {
    if (type == nullptr || type->GetSize() == 0) return CustomTags();
    std::vector<unsigned> tags;
    for (int i = 0; i < type->GetSize(); ++i) AddTag(type->GetAt(i)->GetTag(), tags);
    return tags;
}

}  // namespace quillory

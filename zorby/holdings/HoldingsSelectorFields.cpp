#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/holdings/detail/HoldingsSelectorSettings.h>
#include <zorby/text/detail/TagText.h>

namespace zorby {
namespace {

constexpr const char* kMandarinTag = "852";
constexpr const char* kUsualCallNumber = "852khim";
constexpr const char* kUsualBarCode = "852p";

bool IsMandarin() {
    return CHoldingsSelector::GetCurrentHoldingsTypeID() == HT_MANDARIN_EZ;
}

// What custom settings say; Mandarin's call number and bar code are where they usually are.
std::string CustomPlace(std::string_view key, const char* usualPlace) {
    return IsMandarin() ? usualPlace : HoldingsSettings().GetExtraOr(key, usualPlace);
}

struct Places {
    const char* callNumber;
    const char* barCode;
};

Places PlacesOf(EHOLDINGSTYPE type) {
    if (type == HT_TYPE_1) return {"852h", kUsualBarCode};
    if (type == HT_DYNIX) return {"949d", "949b"};
    const bool isKnown = HT_TYPE_2 <= type && type <= HT_MANDARIN_EZ;
    return isKnown ? Places{kUsualCallNumber, kUsualBarCode} : Places{"", ""};
}

}  // namespace

std::string CHoldingsSelector::GetCustomHoldingsFieldsAndSubfields() {
    if (IsMandarin()) return kMandarinTag + GetMandarinHoldingSubfields();
    return HoldingsSettings().GetExtra("CustomAllFAndS");
}

std::string CHoldingsSelector::GetCustomCallNumber() {
    return CustomPlace("CustomCallNumberSubfields", kUsualCallNumber);
}

std::string CHoldingsSelector::GetCustomBarCode() {
    return CustomPlace("CustomBarCodeSubfield", kUsualBarCode);
}

bool CHoldingsSelector::IsHoldingsField(unsigned tag) {
    const CInfoAboutHoldingsType* type = GetCurrentHoldingsType();
    return type && type->FindField(tag);
}

bool CHoldingsSelector::IsCustomHoldingTag(unsigned tag) {
    return CurrentHoldingsTypeIsCustom() &&
           GetCustomHoldingsFieldsAndSubfields().find(TagText(tag)) != std::string::npos;
}

bool CHoldingsSelector::IsHoldingsFieldForCapitalization(unsigned tag, char subfield) {
    const std::string fields = GetCustomHoldingsFieldsAndSubfields();
    const std::string tagText = TagText(tag);
    const std::size_t at = fields.find(tagText);
    if (at == std::string::npos) return false;
    const std::string behind = fields.substr(at + tagText.size());
    return behind.substr(0, behind.find(' ')).find(subfield) != std::string::npos;
}

void CHoldingsSelector::GetCurrentHoldingsFields(std::string& fields, std::string& callNumber,
                                                 std::string& barCode) {
    if (CurrentHoldingsTypeIsCustom() && !IsMandarin()) {
        constexpr std::size_t kTagWidth = 3;
        fields = GetCustomHoldingsFieldsAndSubfields().substr(0, kTagWidth);
        callNumber = GetCustomCallNumber();
        barCode = GetCustomBarCode();
        return;
    }
    const CInfoAboutHoldingsType* type = GetCurrentHoldingsType();
    const Places places = PlacesOf(type ? type->GetHoldingsTypeID() : HT_NONE);
    fields = type ? type->GetCurrentHoldingsFields() : "";
    callNumber = places.callNumber;
    barCode = places.barCode;
}

std::string CHoldingsSelector::GetUDFields() {
    if (!HoldingsSettings().IsEasy()) {
        return GetCustomBarCode() + " " + GetCustomCallNumber() + " " +
               GetCustomHoldingsFieldsAndSubfields();
    }
    switch (GetCurrentHoldingsTypeID()) {
        case HT_LWLP:
        case HT_LWLP_2:
            return GetLWLPCallTagAndSubs();
        case HT_FOLLETT_UNISON:
            return GetFollettUnisonDCNLocation();
        case HT_MANDARIN_EZ:
            return kMandarinTag + GetMandarinHoldingSubfields();
        default:
            return {};
    }
}

}  // namespace zorby

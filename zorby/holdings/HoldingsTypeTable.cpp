#include <zorby/holdings/HoldingsDelimiters.h>
#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/holdings/HoldingsTypeTable.h>
#include <zorby/holdings/detail/HoldingsSelectorSettings.h>

#include <iterator>

namespace zorby {

constexpr char kcHoldingsDelimiter = '|';
constexpr char kcFollettSubXDelimiter = '@';
constexpr char kcFollettCategoryDelimiter = ',';
constexpr const char* kpFollettSubXMarker = "FSC";

namespace {

// Place 1 is "a".
std::string FollettLead(int place) {
    constexpr int kBeforeA = 'a' - 1;
    return std::string(1, static_cast<char>(place + kBeforeA));
}

std::string AlexandriaLead(int place) {
    constexpr int kFirst = 9;
    constexpr std::array kLeads = {"Funds:", "Accession:", "Policy:", "Vendor:", "Inventory:"};
    const int at = place - kFirst;
    const bool isPlace = 0 <= at && at < static_cast<int>(kLeads.size());
    return isPlace ? kLeads[static_cast<std::size_t>(at)] : "";
}

constexpr HoldingsComposite kFollettX = {
    .code = 'x',
    .opening = kpFollettSubXMarker,
    .partStart = kcFollettSubXDelimiter,
    .lead = FollettLead,
    .dividesValues = true,
};
constexpr HoldingsComposite kAlexandria1 = {
    .code = '1',
    .lead = AlexandriaLead,
    .partEnd = kcHoldingsDelimiter,
    .carriedTag = 852,
};

constexpr const char* kFundLabel = "FUND: ";

constexpr HoldingsLocalField kAlexandriaFields[] = {
    {900, 'a', "Alexandria default call number"},
    {92, 'a', "Alexandria title volume number"},
};

std::string MandarinFields() {
    return "852" + CHoldingsSelector::GetMandarinHoldingSubfields();
}

constexpr HoldingsTypeRow LaterRelease(HoldingsTypeRow earlier, EHOLDINGSTYPE type) {
    earlier.type = type;
    earlier.successor = HT_NONE;
    return earlier;
}

constexpr HoldingsTypeRow kFollett = {
    .type = HT_FOLLETT,
    .elements = {{{200, 216}}},
    .successor = HT_FOLLETT_2,
    .callNumber = {{HID_FOLLETT_CALL_NUMBER}},
    .barCode = HID_FOLLETT_BAR_CODE,
    .triples = {{{HID_FOLLETT_ITEM_A_1, HID_FOLLETT_ITEM_A_2, HID_FOLLETT_ITEM_A_3},
                 {HID_FOLLETT_ITEM_B_1, HID_FOLLETT_ITEM_B_2, HID_FOLLETT_ITEM_B_3}}},
    .composite = &kFollettX,
    .label = {HID_FOLLETT_FUND, 'x', kFundLabel},
};
constexpr HoldingsTypeRow kLwlp = {
    .type = HT_LWLP,
    .elements = {{{600, 620}}},
    .callNumber = {{HID_LWLP_CALL_NUMBER, HID_LWLP_CALL_NUMBER_PART_2}},
    .barCode = HID_LWLP_BAR_CODE,
    .automatic = HID_LWLP_AUTOMATIC,
    .userDefinedFields = CHoldingsSelector::GetLWLPCallTagAndSubs,
    .group = HoldingsGroup::kLwlp,
    .settings = {kLwlpCallTag, kLwlpSubTags},
};
constexpr HoldingsTypeRow kType12 = {
    .type = HT_TYPE_12,
    .elements = {{{900, 909}}},
    .successor = HT_TYPE_15,
    .callNumber = {{HID_TYPE_12_CALL_NUMBER}},
    .barCode = HID_TYPE_12_BAR_CODE,
    .pair = {HID_TYPE_12_ITEM_1, HID_TYPE_12_ITEM_2, true},
};

constexpr HoldingsTypeRow kTypeRows[] = {
    {
        .type = HT_TYPE_1,
        .elements = {{{100, 103}}},
        .callNumber = {{HID_TYPE_1_CALL_NUMBER}},
        .barCode = HID_TYPE_1_BAR_CODE,
        .callNumberPlace = "852h",
    },
    {
        .type = HT_TYPE_2,
        .elements = {{{150, 156}}},
        .callNumber = {{HID_TYPE_2_CALL_NUMBER_PART_1, HID_TYPE_2_CALL_NUMBER,
                        HID_TYPE_2_CALL_NUMBER_PART_3, HID_TYPE_2_CALL_NUMBER_PART_4},
                       1},
        .barCode = HID_TYPE_2_BAR_CODE,
    },
    kFollett,
    {
        .type = HT_TYPE_4,
        .elements = {{{300, 313}}},
        .callNumber = {{HID_TYPE_4_CALL_NUMBER_PART_1, HID_TYPE_4_CALL_NUMBER,
                        HID_TYPE_4_CALL_NUMBER_PART_3, HID_TYPE_4_CALL_NUMBER_PART_4},
                       1},
        .barCode = HID_TYPE_4_BAR_CODE,
    },
    {
        .type = HT_TYPE_5,
        .elements = {{{400, 408}}},
        .callNumber = {{HID_TYPE_5_CALL_NUMBER}},
        .barCode = HID_TYPE_5_BAR_CODE,
        .pair = {HID_TYPE_5_ITEM_1, HID_TYPE_5_ITEM_2},
    },
    {
        .type = HT_TYPE_6,
        .elements = {{{700, 705}}},
        .callNumber = {{HID_TYPE_6_CALL_NUMBER, HID_TYPE_6_CALL_NUMBER_PART_2}},
        .barCode = HID_TYPE_6_BAR_CODE,
    },
    {
        .type = HT_DYNIX,
        .elements = {{{500, 511}}},
        .callNumber = {{HID_DYNIX_CALL_NUMBER}},
        .barCode = HID_DYNIX_BAR_CODE,
        .indicators = CHoldingsSelector::GetDynixIndicators,
        .callNumberPlace = "949d",
        .barCodePlace = "949b",
        .group = HoldingsGroup::kDynix,
        .settings = {kDynixIndicators},
    },
    kLwlp,
    LaterRelease(kLwlp, HT_LWLP_2),
    {
        .type = HT_FOLLETT_UNISON,
        .elements = {{{250, 262}, {264, 264}}},
        .callNumber = {{HID_FOLLETT_UNISON_CALL_NUMBER}},
        .barCode = HID_FOLLETT_UNISON_BAR_CODE,
        .composite = &kFollettX,
        .label = {HID_FOLLETT_UNISON_FUND, 'x', kFundLabel},
        .userDefinedFields = CHoldingsSelector::GetFollettUnisonDCNLocation,
        .group = HoldingsGroup::kFollettUnison,
        .settings = {kUnisonNextAccNo, kUnisonDCNLocation},
    },
    {
        .type = HT_TYPE_11,
        .elements = {{{800, 808}}},
        .callNumber = {{HID_TYPE_11_CALL_NUMBER}},
        .barCode = HID_TYPE_11_BAR_CODE,
    },
    kType12,
    LaterRelease(kFollett, HT_FOLLETT_2),
    {
        .type = HT_ALEXANDRIA,
        .elements = {{{950, 964}}},
        .callNumber = {{HID_ALEXANDRIA_CALL_NUMBER}},
        .barCode = HID_ALEXANDRIA_BAR_CODE,
        .composite = &kAlexandria1,
        .localFields = kAlexandriaFields,
    },
    LaterRelease(kType12, HT_TYPE_15),
    {
        .type = HT_MANDARIN_EZ,
        .userDefinedFields = MandarinFields,
        .tagsWithoutElements = "001,852,989",
        .group = HoldingsGroup::kMandarin,
        .settings = {kMandarinSubfields},
    },
};

constexpr HoldingsTypeRow kNoRow = {.callNumberPlace = "", .barCodePlace = ""};

}  // namespace

std::span<const HoldingsTypeRow> HoldingsTypeTable() {
    return kTypeRows;
}

const HoldingsTypeRow& HoldingsRowOf(EHOLDINGSTYPE type) {
    const auto* row = std::ranges::find(kTypeRows, type, &HoldingsTypeRow::type);
    return row == std::end(kTypeRows) ? kNoRow : *row;
}

const HoldingsTypeRow* FindHoldingsRow(EHOLDINGSID id) {
    const auto* row =
        std::ranges::find_if(kTypeRows, [id](const auto& each) { return each.Has(id); });
    return row == std::end(kTypeRows) ? nullptr : row;
}

}  // namespace zorby

#include <quillory/cards/CardOptions.h>
#include <quillory/cards/PackedSetting.h>
#include <zorby/settings/ProfileKeys.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr const char* kCardsKey = "ZP_OptionsCards";
constexpr int kMostCopies = 99;

// "All/1": which notes, and how many cards of each.
void ParseIncludes(const PackedSetting& options, const std::string& key, CardGroup& group) {
    const std::string text = options.Text(key);
    const std::size_t slash = std::min(text.find('/'), text.size());
    const std::string notes = text.substr(0, slash);
    if (notes == "None") {
        group.notes = kNotesNone;
    } else if (notes == "All") {
        group.notes = kNotesAll;
    } else if (notes == "Select") {
        group.notes = kNotesSelected;
    } else {
        RefuseSetting(options.Where(key), text,
                      "None, All or Select, a slash and a number of copies");
    }
    const std::string copies = slash == text.size() ? "1" : text.substr(slash + 1);
    group.copies = ParseWholeNumber(options.Where(key), copies, 0, kMostCopies);
}

PlaceSet MoreSubfields(int id, const std::string& name) {
    zorby::CKeysNValues values;
    values.SetSeperator("^^");
    values.Set(ProfileText(id), true);
    std::string typed;
    std::string chosen;
    values.GetKey("FromEdit", typed);
    values.GetKey("FromTree", chosen);
    return ParsePlaceList(name, typed + " " + chosen);
}

// "ams": a for added entries, m for the main entry, s for the shelf list.
void ParseSet(const PackedSetting& options, CardOptions& result) {
    constexpr const char* kKey = "CardSetIncludes";
    const std::string set = options.Text(kKey);
    if (set.find_first_not_of("ams") != set.npos) {
        RefuseSetting(options.Where(kKey), set,
                      "made of a (added entries), m (main entry) and s (shelf list)");
    }
    result.addedEntries.isMade = set.find('a') != set.npos;
    result.mainEntry.isMade = set.find('m') != set.npos;
    result.shelfList.isMade = set.find('s') != set.npos;
}

void ReadGroups(const PackedSetting& options, CardOptions& result) {
    struct Row {
        const char* includes;
        CardGroup* group;
        int more;
        const char* moreName;
        int notes;
        const char* notesName;
    };
    const Row rows[] = {
        {"SLIncludes", &result.shelfList, zorby::ZP_OptionsCardsMoreSubfieldsSL,
         "ZP_OptionsCardsMoreSubfieldsSL", zorby::ZP_OptionsCardsSelectNotesSL,
         "ZP_OptionsCardsSelectNotesSL"},
        {"MEIncludes", &result.mainEntry, zorby::ZP_OptionsCardsMoreSubfieldsME,
         "ZP_OptionsCardsMoreSubfieldsME", zorby::ZP_OptionsCardsSelectNotesME,
         "ZP_OptionsCardsSelectNotesME"},
        {"AEIncludes", &result.addedEntries, zorby::ZP_OptionsCardsMoreSubfieldsAE,
         "ZP_OptionsCardsMoreSubfieldsAE", zorby::ZP_OptionsCardsSelectNotesAE,
         "ZP_OptionsCardsSelectNotesAE"},
    };
    for (const Row& row : rows) {
        ParseIncludes(options, row.includes, *row.group);
        row.group->moreSubfields = MoreSubfields(row.more, row.moreName);
        row.group->selectedNotes = ParsePlaceList(row.notesName, ProfileText(row.notes));
    }
}

CardFonts ReadFonts() {
    const PackedSetting fonts(zorby::ZP_OptionsCardsFonts, "ZP_OptionsCardsFonts");
    return {fonts.Font("CallNumber"), fonts.Font("Heading"), fonts.Font("ContHeading"),
            fonts.Font("Body"), fonts.Font("Tracings")};
}

}  // namespace

const CardGroup& CardOptions::GroupOf(ItemUse use) const {
    if (use == kUseShelfList) return shelfList;
    return use == kUseMainEntry ? mainEntry : addedEntries;
}

CardOptions CardOptionsOfProfile() {
    const PackedSetting options(zorby::ZP_OptionsCards, kCardsKey);
    CardOptions result;
    result.cardsPerSheet = options.WholeNumber("CardsPerSheet", 1, 4);
    result.verticalOffset = options.Number("VerticalOffset", -kMostInches, kMostInches);
    result.horizontalOffset = options.Number("HorizontalOffset", -kMostInches, kMostInches);
    result.holeCenter = options.Number("HoleCenterVerticalOffset", 0, kMostInches);
    result.subjects = static_cast<SubjectChoice>(
        options.WholeNumber("SubjectHeadingsToInclude", kSubjectsAll, kSubjectsSears));
    ParseSet(options, result);
    ReadGroups(options, result);
    result.fonts = ReadFonts();
    return result;
}

}  // namespace quillory

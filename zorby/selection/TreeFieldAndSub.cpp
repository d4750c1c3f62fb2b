#include <zorby/format/MARCFormat.h>
#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/selection/TreeFieldAndSub.h>
#include <zorby/settings/Profile.h>
#include <zorby/text/detail/TagText.h>

#include <algorithm>
#include <span>

namespace zorby {

// A group of fields: single tags first, then a range.
struct CTreeFieldAndSub::Group {
    const char* name;
    char letter;
    std::span<const unsigned> tags;
    unsigned low;
    unsigned high;
};

namespace {

// The data of an item has its kind or letter in the high half, and its tag or number in the low
// one.
constexpr std::uint32_t kLowHalf = 0xFFFF;
constexpr std::uint32_t kGroupData = 0xFFFF0000;
constexpr std::uint32_t kHoldingsData = 0xFEED0000;

constexpr const char* kHoldings = "Holdings";
constexpr unsigned kTitleTag = 245;
constexpr unsigned kHoldingsTag = 852;
constexpr unsigned kDefaultCallNumberTag = 900;

constexpr unsigned kMainEntryTags[] = {100, 110, 111, 130};
constexpr unsigned kSeriesTags[] = {800, 810, 811, 830, 440};

std::uint32_t DataOfItem(char high, unsigned low) {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(high)) << 16 | low;
}

char HighOf(std::uint32_t data) {
    return static_cast<char>(data >> 16);
}

bool IsOfHoldings(std::uint32_t data) {
    return (data & ~kLowHalf) == kHoldingsData;
}

bool IsGroup(std::uint32_t data) {
    return (data & ~kLowHalf) == kGroupData;
}

std::string FieldNode(unsigned tag, char letter) {
    return letter ? TagText(tag) + letter : TagText(tag);
}

bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

// Returns what stands between `start` and the next backslash, or an empty text.
std::string CodesAfter(const std::string& start, std::string_view selection) {
    const std::size_t at = selection.find(start);
    if (at == std::string_view::npos) return {};
    const std::string_view rest = selection.substr(at + start.size());
    return std::string(rest.substr(0, rest.find('\\')));
}

std::vector<unsigned> KnownTags(unsigned low, unsigned high) {
    std::vector<unsigned> known;
    const auto tags = CMARCFormat::AllTags(low, high);
    for (const unsigned tag : *tags) {
        const bool isNew = std::ranges::find(known, tag) == known.end();
        if (low <= tag && tag <= high && isNew) known.push_back(tag);
    }
    return known;
}

EDISPLAYOPTIONS OptionOfProfile() {
    return static_cast<EDISPLAYOPTIONS>(GetZorbyProfileInt(ZP_DisplayNameOrMARC));
}

}  // namespace

void CTreeFieldAndSub::SetOptions(int level2Checkable, int rootCheckable, int singleSelection,
                                  int allow245h, int allowSubfields) {
    CTreeWithCheckBoxes::SetOptions(level2Checkable, rootCheckable, singleSelection);
    allow245h_ = allow245h != 0;
    allowSubfields_ = allowSubfields != 0;
}

void CTreeFieldAndSub::PrePopulateSetup() {
    CTreeWithCheckBoxes::PrePopulateSetup();
    option_ = OptionOfProfile();
    sortsItems_ = false;
}

void CTreeFieldAndSub::PopulateFieldGroups(std::string_view selection, int showHoldings,
                                           int notesOnward, int allow001And003) {
    static constexpr Group kUntilNotes[] = {
        {"Main entries", 'M', kMainEntryTags, 1, 0},
        {"Titles", 'T', {}, 200, 249},
        {"Editions, imprint, etc.", 'E', {}, 250, 270},
        {"Physical description", 'P', {}, 300, 399},
    };
    static constexpr Group kFromNotes[] = {
        {"Notes", 'O', {}, 500, 599},           {"Subjects", 'S', {}, 600, 699},
        {"Numbers and codes", 'U', {}, 10, 99}, {"Added entries", 'A', {}, 700, 754},
        {"Series", 'E', kSeriesTags, 1, 0},
    };
    static constexpr Group kLocation = {
        "Location fields (including Electronic Location and Access)", '\0', {}, 841, 886};
    PrePopulateSetup();
    selection_ = selection;
    if (!notesOnward) {
        for (const Group& group : kUntilNotes) InsertGroup(group, selection, allow001And003);
    }
    sortsItems_ = true;
    for (const Group& group : kFromNotes) InsertGroup(group, selection, allow001And003);
    if (showHoldings && !CHoldingsSelector::CurrentHoldingsTypeIsCustom()) {
        InsertHoldings(selection);
    }
    InsertGroup(kLocation, selection, allow001And003);
    sortsItems_ = false;
    PopulateNeededSubfields();
    ShowParentsOfChecked();
}

void CTreeFieldAndSub::InsertGroup(const Group& group, std::string_view selection,
                                   int allow001And003) {
    const TreeItem item = InsertItemFieldGroups(group.name, kTreeRoot);
    const auto insert = [&](unsigned tag) {
        InsertItemFieldGroupsSingleTag(tag, group.letter, item, selection, 1);
    };
    std::ranges::for_each(group.tags, insert);
    if (group.low <= group.high) {
        InsertItemAllFandS(group.low, group.high, group.letter, item, selection);
    }
    if (group.letter != 'U') return;
    if (allow001And003) {
        insert(1);
        insert(3);
    }
    std::ranges::for_each(KnownTags(kDefaultCallNumberTag, kDefaultCallNumberTag), insert);
}

TreeItem CTreeFieldAndSub::InsertItemFieldGroups(std::string_view name, TreeItem parent) {
    return InsertItem(parent, name, kGroupData);
}

void CTreeFieldAndSub::InsertItemAllFandS(unsigned low, unsigned high, char letter, TreeItem parent,
                                          std::string_view selection) {
    for (const unsigned tag : KnownTags(low, high)) {
        if (tag == kHoldingsTag && CHoldingsSelector::IsHoldingsField(tag)) continue;
        InsertItemFieldGroupsSingleTag(tag, letter, parent, selection, 1);
    }
}

TreeItem CTreeFieldAndSub::InsertItemFieldGroupsSingleTag(unsigned tag, char letter,
                                                          TreeItem parent,
                                                          std::string_view selection,
                                                          int checksSingle) {
    std::string name;
    CMARCFormat::FieldName(tag, option_, name);
    const TreeItem item = Insert(parent, name, DataOfItem(letter, tag));
    const bool isNamed = Contains(selection, "\\" + FieldNode(tag, letter) + "\\");
    if (isNamed && (checksSingle || !IsSingleSelection())) SetItemSelection(item, kChecked);
    std::string codes;
    CMARCFormat::AllSubfieldCodes(tag, codes);
    if (allowSubfields_ && !codes.empty()) SetExpandable(item);
    return item;
}

TreeItem CTreeFieldAndSub::Insert(TreeItem parent, std::string_view text, std::uint32_t data) {
    return sortsItems_ ? InsertItemSorted(parent, text, data) : InsertItem(parent, text, data);
}

void CTreeFieldAndSub::InsertHoldings(std::string_view selection) {
    const TreeItem group = InsertItem(kTreeRoot, kHoldings, kHoldingsData);
    AddHoldingsType(group, 1, CHoldingsSelector::GetCurrentHoldingsTypeID(), selection);
    if (!Contains(selection, "\\HLD0\\") && !Contains(selection, "\\HLD000\\")) return;
    SetItemSelection(group, kChecked);
    UpdateChildren(group);
}

void CTreeFieldAndSub::AddHoldingsType(TreeItem parent, int level, EHOLDINGSTYPE type,
                                       std::string_view selection) {
    const CInfoAboutHoldingsType* info = CInfoAboutHoldingsTypeList::FindFromType(type);
    if (!info) return;
    if (level == 2) parent = Insert(parent, info->GetName(), kGroupData);
    if (!allowSubfields_) return;
    for (int i = 0; i < info->GetSize(); ++i) {
        InsertItemHoldingsField(*info->GetAt(i), parent, selection);
    }
}

void CTreeFieldAndSub::InsertItemHoldingsField(const CInfoAboutHoldingsField& field,
                                               TreeItem parent, std::string_view selection) {
    const auto id = static_cast<std::uint32_t>(field.GetHoldingsID());
    const TreeItem item = Insert(parent, field.GetName(), kHoldingsData | (id & kLowHalf));
    if (Contains(selection, "HLD" + std::to_string(id))) SetItemSelection(item, kChecked);
}

bool CTreeFieldAndSub::IsField(TreeItem item) const {
    const std::uint32_t data = GetItemData(item);
    return GetLevel(item) == 2 && !IsOfHoldings(data) && !IsGroup(data);
}

std::string CTreeFieldAndSub::ChosenCodes(TreeItem field) const {
    const unsigned tag = GetItemData(field) & kLowHalf;
    const std::string withLetter = "\\" + FieldNode(tag, HighOf(GetItemData(field)));
    const bool hasLetter = Contains(selection_, withLetter);
    return CodesAfter(hasLetter ? withLetter : "\\" + TagText(tag), selection_);
}

void CTreeFieldAndSub::PopulateSubfield(TreeItem item) {
    if (!allowSubfields_ || !IsField(item) || !GetChildren(item).empty()) return;
    const unsigned tag = GetItemData(item) & kLowHalf;
    const std::string chosen = ChosenCodes(item);
    std::string codes;
    CMARCFormat::AllSubfieldCodes(tag, codes);
    for (const char code : codes) {
        if (tag == kTitleTag && code == 'h' && !allow245h_) continue;
        std::string name;
        CMARCFormat::SubfieldName(tag, code, option_, name);
        const TreeItem subfield = InsertItem(item, name, DataOfItem(code, tag));
        const bool follows = GetItemSelection(item) == kChecked;
        if (follows || chosen.find(code) != std::string::npos) {
            SetItemSelection(subfield, kChecked);
        }
    }
}

void CTreeFieldAndSub::PopulateNeededSubfields() {
    for (const TreeItem group : GetChildren(kTreeRoot)) {
        for (const TreeItem field : std::vector<TreeItem>(GetChildren(group))) {
            if (IsField(field) && !ChosenCodes(field).empty()) PopulateSubfield(field);
        }
    }
}

// An item that the selection checks as a whole stays so, also with single selection.
void CTreeFieldAndSub::ShowParentsOfChecked() {
    const auto show = [this](TreeItem parent, const auto& showBelow) -> void {
        if (GetItemSelection(parent) == kChecked) return;
        for (const TreeItem item : GetChildren(parent)) {
            showBelow(item, showBelow);
            if (GetItemSelection(item) == kChecked) UpdateParents(item);
        }
    };
    show(kTreeRoot, show);
    ExpandSelected();
    ScrollFirstChecked();
}

void CTreeFieldAndSub::GetSelected(std::string& text) const {
    text.clear();
    const std::vector<TreeItem>& groups = GetChildren(kTreeRoot);
    if (groups.empty()) return;
    std::string path;
    std::vector<std::string> names;
    GetSelNodePath(groups.front(), path, names);
    for (const std::string& name : names) text += "\\" + name;
    if (!names.empty()) text += "\\";
}

std::string CTreeFieldAndSub::NameOf(TreeItem item) const {
    const std::uint32_t data = GetItemData(item);
    if (IsOfHoldings(data)) return "HLD" + TagText(data & kLowHalf);
    return FieldNode(data & kLowHalf, HighOf(data));
}

// Gives the name of a field with the codes of its checked subfields.
void CTreeFieldAndSub::AppendSubfields(TreeItem field, std::string& path,
                                       std::vector<std::string>& names) const {
    const std::size_t cut = path.size();
    path += "\\" + TagText(GetItemData(field) & kLowHalf);
    const std::size_t lengthWithoutCodes = path.size();
    for (const TreeItem subfield : GetChildren(field)) {
        if (GetItemSelection(subfield) == kChecked) path += HighOf(GetItemData(subfield));
    }
    if (path.size() > lengthWithoutCodes) names.push_back(path.substr(cut + 1));
    path.resize(cut);
}

void CTreeFieldAndSub::GetSelNodePath(TreeItem item, std::string& path,
                                      std::vector<std::string>& names) const {
    const std::vector<TreeItem>& siblings = GetChildren(GetParent(item));
    for (auto at = std::ranges::find(siblings, item); at != siblings.end(); ++at) {
        const int state = GetItemSelection(*at);
        if (state == kChecked && !IsGroup(GetItemData(*at))) {
            names.push_back(NameOf(*at));
        } else if (IsField(*at)) {
            AppendSubfields(*at, path, names);
        } else if (state != kClear && !GetChildren(*at).empty()) {
            GetSelNodePath(GetChildren(*at).front(), path, names);
        }
    }
}

int CTreeFieldAndSub::GetAllow245h() const {
    return allow245h_ ? 1 : 0;
}

}  // namespace zorby

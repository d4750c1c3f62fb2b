#include <quillory/cards/CardMaker.h>
#include <quillory/cards/Notes.h>
#include <quillory/cards/Punctuation.h>

#include <algorithm>
#include <array>
#include <utility>

namespace quillory {
namespace {

constexpr std::string_view kNotOfDescription = "0123456789u";
constexpr std::string_view kTitleTag = "245";

bool IsImprint(const CardField& field) {
    const bool isOtherStatement = field.tag == "264" && field.second != '1' && field.second != ' ';
    return field.tag == "260" || (field.tag == "264" && !isOtherStatement);
}

bool IsSeriesStatement(const CardField& field) {
    return field.tag == "440" || field.tag == "490";
}

const CardField* Itself(const CardField& field) {
    return &field;
}

const CardField* Other(const CardField& field) {
    return field.other.empty() ? nullptr : &field.other.front();
}

using Version = const CardField* (*)(const CardField& field);

// Title, edition, special details and imprint in one paragraph, of the fields or of what they say
// in another script.
std::string TitleParagraph(const CardRecord& record, Version version) {
    std::string text;
    const auto add = [&](const auto& isWanted) {
        for (const CardField& field : record.Fields()) {
            const CardField* said = isWanted(field) ? version(field) : nullptr;
            if (said == nullptr) continue;
            AddArea(Joined(*said, kNotOfDescription, record.HasPunctuation()), text);
        }
    };
    add([](const CardField& field) { return field.tag == kTitleTag; });
    add([](const CardField& field) { return field.tag == "250"; });
    add([](const CardField& field) {
        return field.tag == "254" || field.tag == "255" || field.tag == "256" || field.tag == "362";
    });
    add(IsImprint);
    return WithFullStop(std::move(text));
}

// Extent, and the series in brackets.
std::string ExtentParagraph(const CardRecord& record, Version version) {
    std::string text;
    std::string series;
    for (const CardField& field : record.Fields()) {
        const CardField* said = version(field);
        if (said == nullptr) continue;
        const bool hasPunctuation = record.HasPunctuation();
        if (field.tag == "300") AddArea(Joined(*said, kNotOfDescription, hasPunctuation), text);
        if (!IsSeriesStatement(field)) continue;
        const std::string one = WithoutLastMark(Joined(*said, "01235678lwyz", hasPunctuation));
        if (!one.empty()) series.append(series.empty() ? "(" : " (").append(one).append(")");
    }
    AddArea(series, text);
    return WithFullStop(std::move(text));
}

// "ISBN" stands before a number of that kind.
std::string MoreText(const PlacePattern& pattern, const std::string& text) {
    if (pattern.place.Tag() == "020") return "ISBN " + text;
    if (pattern.place.Tag() == "022") return "ISSN " + text;
    return text;
}

// The copies of the shelf list, where they have bar codes.
std::string CopiesText(const std::vector<ShelvedCopy>& copies) {
    std::string text;
    for (const ShelvedCopy& copy : copies) {
        if (copy.barCodes.empty()) continue;
        text.append(text.empty() ? "Copies: " : "; ");
        text.append(copy.callNumber).append(" (").append(copy.barCodes).append(")");
    }
    return text;
}

void Add(BlockRole role, std::string text, PrintItem& card) {
    if (!text.empty()) card.blocks.push_back({role, std::move(text)});
}

// "Proust, Marcel, 1871-1922. Du côté de chez Swann."
std::string ContinuedHeading(const CardRecord& record) {
    const CardField* title = record.Find(kTitleTag);
    std::string text;
    for (const std::string& heading : MainHeading(record)) {
        text.append(heading).append(" ");
        break;
    }
    return title == nullptr ? text
                            : text + WithFullStop(ProperTitle(*title, record.HasPunctuation()));
}

// A uniform title, where its first indicator says that it is printed.
void AddUniformTitle(const CardRecord& record, PrintItem& card) {
    for (const char* tag : {"240", "243"}) {
        const CardField* field = record.Find(tag);
        if (field == nullptr || field->first != '1') continue;
        const std::string text = Joined(*field, kNotOfDescription, record.HasPunctuation());
        if (!text.empty()) Add(kBlockBody, "[" + WithoutLastMark(text) + "]", card);
    }
}

void AddDescription(const CardRecord& record, PrintItem& card) {
    const std::vector<std::string> heading = MainHeading(record);
    for (const std::string& line : heading) Add(kBlockMainHeading, line, card);
    AddUniformTitle(record, card);
    const BlockRole role = heading.empty() ? kBlockTitleEntry : kBlockBody;
    Add(role, TitleParagraph(record, Itself), card);
    Add(role, TitleParagraph(record, Other), card);
    Add(kBlockBody, ExtentParagraph(record, Itself), card);
    Add(kBlockBody, ExtentParagraph(record, Other), card);
}

void AddNotes(const CardRecord& record, const CardGroup& group, PrintItem& card) {
    if (group.notes == kNotesNone) return;
    const auto takes = [&group](const std::string& tag) {
        return group.notes == kNotesAll || group.selectedNotes.Covers(tag);
    };
    for (std::string& note : Notes(record, takes)) Add(kBlockBody, std::move(note), card);
}

void AddMoreSubfields(const CardRecord& record, const CardGroup& group, PrintItem& card) {
    for (const PlacePattern& pattern : group.moreSubfields.patterns) {
        for (const std::string& text : record.TextsAt(pattern)) {
            Add(kBlockBody, WithoutLastMark(MoreText(pattern, text)), card);
        }
    }
}

ItemUse UseOf(AddedEntryKind kind) {
    constexpr std::array<ItemUse, 4> kUses{kUseTitle, kUseName, kUseSeries, kUseSubject};
    return kUses[static_cast<std::size_t>(kind)];
}

PrintItem WithHeading(const PrintItem& card, const AddedEntry& entry) {
    PrintItem added = card;
    added.use = UseOf(entry.kind);
    std::vector<Block> headings{{kBlockAddedHeading, entry.heading}};
    if (!entry.other.empty()) headings.push_back({kBlockAddedHeading, entry.other});
    added.blocks.insert(added.blocks.begin(), headings.begin(), headings.end());
    return added;
}

}  // namespace

CardMaker::CardMaker(const CardOptions& options, const std::vector<ItemUse>& uses,
                     CallNumbers& callNumbers, Charset charset)
    : options_(options), uses_(uses), callNumbers_(callNumbers), reader_(charset) {}

bool CardMaker::IsMade(ItemUse use) const {
    if (uses_.empty()) return options_.GroupOf(use).isMade;
    return std::ranges::find(uses_, use) != uses_.end();
}

PrintItem CardMaker::Card(ItemUse use, const CardRecord& texts,
                          const std::vector<ShelvedCopy>& copies) {
    const CardGroup& group = options_.GroupOf(use);
    PrintItem card{use, texts.ControlNumber(), {}};
    for (const std::string& line : CallNumberLines(copies.front().callNumber)) {
        card.blocks.push_back({kBlockCallNumber, line});
    }
    AddDescription(texts, card);
    AddNotes(texts, group, card);
    AddMoreSubfields(texts, group, card);
    if (use == kUseShelfList) Add(kBlockBody, CopiesText(copies), card);
    Add(kBlockContinued, ContinuedHeading(texts), card);
    return card;
}

std::vector<PrintItem> CardMaker::CardsOf(const Record& record) {
    const CardRecord texts(record, reader_);
    if (texts.Find(kTitleTag) == nullptr) return {};
    const std::vector<ShelvedCopy> copies = callNumbers_.Of(record, texts, reader_);
    const std::vector<AddedEntry> entries = AddedEntries(texts, options_.subjects);
    std::vector<PrintItem> cards;
    const auto add = [&](const PrintItem& card) {
        const auto count = static_cast<std::size_t>(options_.GroupOf(card.use).copies);
        cards.insert(cards.end(), count, card);
    };
    for (const ItemUse use : {kUseShelfList, kUseMainEntry}) {
        if (!IsMade(use)) continue;
        PrintItem card = Card(use, texts, copies);
        Add(kBlockTracings, Tracings(entries), card);
        add(card);
    }
    const PrintItem base = Card(kUseTitle, texts, copies);
    for (const AddedEntryKind kind : {kEntryTitle, kEntryName, kEntrySeries, kEntrySubject}) {
        if (!IsMade(UseOf(kind))) continue;
        for (const AddedEntry& entry : entries) {
            if (entry.kind == kind) add(WithHeading(base, entry));
        }
    }
    return cards;
}

}  // namespace quillory

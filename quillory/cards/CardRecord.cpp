#include <quillory/cards/CardRecord.h>
#include <quillory/exchange/Subfields.h>
#include <quillory/text/Trimmed.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

constexpr std::string_view kAlternateTag = "880";
constexpr char kLink = '6';
constexpr std::size_t kLinkSize = 6;  // "245-01"
constexpr std::size_t kCatalogingForm = 18;

CardField FieldOf(const Record& record, const zorby::CommFormatField& field, ValueReader& reader) {
    CardField result{std::string(field.tag), field.content[0], field.content[1], {}};
    ForEachSubfield(field.content, [&](char code, std::string_view text) {
        const std::string_view utf8 = Trimmed(reader.TextOf(record, {{}, text}));
        if (!utf8.empty()) result.subfields.push_back({code, std::string(utf8)});
    });
    return result;
}

// The number of a link such as "880-01"; empty if the field has none, or "00", which links nothing.
std::string_view LinkNumber(const CardField& field) {
    const std::string_view link = field.Text(kLink).substr(0, kLinkSize);
    const std::string_view number = link.size() == kLinkSize ? link.substr(4) : std::string_view();
    return number == "00" ? std::string_view() : number;
}

}  // namespace

std::string_view CardField::Text(char code) const {
    const auto found = std::ranges::find(subfields, code, &CardSubfield::code);
    return found == subfields.end() ? std::string_view() : std::string_view(found->text);
}

CardRecord::CardRecord(const Record& record, ValueReader& reader) {
    reader.Begin();
    controlNumber_ = reader.TextOf(record, {{}, record.ControlNumber()});
    const char form = record.leader.size() > kCatalogingForm ? record.leader[kCatalogingForm] : ' ';
    hasPunctuation_ = form == 'a' || form == 'i';
    std::vector<CardField> alternates;
    for (const zorby::CommFormatField& field : record.fields) {
        if (field.IsControlField() || ShapeOf(field) != kDataShape) continue;
        const bool isAlternate = field.tag == kAlternateTag;
        (isAlternate ? alternates : fields_).push_back(FieldOf(record, field, reader));
    }
    for (CardField& alternate : alternates) Link(std::move(alternate));
}

// The link of an 880 begins with the tag of the field whose text it has.
void CardRecord::Link(CardField alternate) {
    const std::string tag(alternate.Text(kLink).substr(0, kTagSize));
    if (tag.size() != kTagSize) return;
    alternate.tag = tag;
    const std::string_view number = LinkNumber(alternate);
    const auto field = std::ranges::find_if(fields_, [&](const CardField& other) {
        return other.tag == tag && other.other.empty() && LinkNumber(other) == number;
    });
    const bool isLinked = !number.empty() && field != fields_.end();
    (isLinked ? field->other : fields_).push_back(std::move(alternate));
}

const CardField* CardRecord::Find(std::string_view tag) const {
    const auto field = std::ranges::find(fields_, tag, &CardField::tag);
    return field == fields_.end() ? nullptr : &*field;
}

std::vector<std::string> CardRecord::TextsAt(const PlacePattern& pattern) const {
    std::vector<std::string> texts;
    TagOccurrences occurrences;
    for (const CardField& field : fields_) {
        const std::uint32_t occurrence = occurrences.Next(field.tag);
        if (!pattern.Covers(field.tag)) continue;
        if (pattern.place.occurrence != 0 && pattern.place.occurrence != occurrence) continue;
        std::string text;
        for (const CardSubfield& subfield : field.subfields) {
            if (pattern.HasCodes() && !pattern.HasCode(subfield.code)) continue;
            text.append(text.empty() ? "" : " ").append(subfield.text);
        }
        if (!text.empty()) texts.push_back(std::move(text));
    }
    return texts;
}

}  // namespace quillory

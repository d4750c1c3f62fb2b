#include <quillory/cataloging/Draft.h>

#include <algorithm>
#include <array>
#include <utility>

namespace quillory {
namespace {

using zorby::CTemplate;

constexpr std::size_t kNone = static_cast<std::size_t>(-1);
constexpr unsigned kTag006 = 6;
constexpr unsigned kTag007 = 7;
constexpr unsigned kTag008 = 8;
constexpr int kFirstOfDate1 = 7;
constexpr int kLastOfDate1 = 10;

std::string Day(const std::tm& day) {
    std::array<char, 8> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%y%m%d", &day)};
}

std::string TagText(unsigned tag) {
    const std::string digits = std::to_string(tag);
    return std::string(3 - std::min<std::size_t>(3, digits.size()), '0') + digits;
}

// Positions of the leader that say how the record is stored: nobody's to set.
bool IsStructure(int first, int last) {
    constexpr std::array<std::pair<int, int>, 3> kStructure{{{0, 4}, {9, 16}, {20, 23}}};
    return std::ranges::any_of(
        kStructure, [=](const auto& part) { return first <= part.second && part.first <= last; });
}

void CheckRepeats(const Entry& entry) {
    std::string codes;
    for (const SubfieldText& subfield : entry.subfields) {
        const bool isRepeat = codes.find(subfield.code) != codes.npos;
        if (isRepeat && CTemplate::SubfieldRepeatable(entry.tag, subfield.code) == 0) {
            throw EntryError(entry.place, std::string("a field has $") + subfield.code + " once");
        }
        codes += subfield.code;
    }
}

}  // namespace

bool Draft::Field::Has(char code) const {
    return std::ranges::find(given, code, &SubfieldText::code) != given.end();
}

bool Draft::Field::IsWanted() const {
    return isTouched || (pattern != nullptr && pattern->StandsAlone());
}

Draft::Draft(const Pattern& pattern, const std::tm& day)
    : pattern_(pattern), leader_(pattern.Leader()), controlFields_(pattern.ControlFields()) {
    for (ControlField& field : controlFields_) {
        const std::string entered = Day(day);
        if (field.tag == kTag008) field.content.replace(0, entered.size(), entered);
    }
    for (const PatternField& field : pattern.Fields()) {
        fields_.push_back({field.tag, field.indicators, &field, {}, false, false, false});
    }
}

void Draft::Take(const Entry& entry) {
    switch (entry.kind) {
        case EntryKind::Subfield:
        case EntryKind::Field:
            TakeSubfields(entry);
            break;
        case EntryKind::WrittenField:
            TakeWrittenField(entry);
            break;
        case EntryKind::ControlField:
            TakeControlField(entry);
            break;
        case EntryKind::Positions:
            TakePositions(entry);
            break;
    }
}

void Draft::TakeSubfields(const Entry& entry) {
    CheckRepeats(entry);
    const std::size_t place = FieldFor(entry);
    Field& field = fields_[place];
    current_[entry.tag] = place;
    field.isTouched = true;
    if (!entry.indicators.empty()) {
        field.indicators = entry.indicators;
        field.hasIndicators = true;
    }
    for (const SubfieldText& subfield : entry.subfields) field.given.push_back(subfield);
}

void Draft::TakeWrittenField(const Entry& entry) {
    const std::size_t place = entry.occurrence != 0 ? NumberedField(entry) : NextField(entry);
    current_[entry.tag] = place;
    fields_[place] = {entry.tag, entry.indicators, nullptr, entry.subfields, true, true, true};
}

std::size_t Draft::FieldFor(const Entry& entry) {
    if (entry.occurrence != 0) return NumberedField(entry);
    const auto current = current_.find(entry.tag);
    if (current == current_.end() || entry.kind == EntryKind::Field || entry.subfields.empty()) {
        return NextField(entry);
    }
    const char code = entry.subfields.front().code;
    const Field& field = fields_[current->second];
    const bool fits = !field.Has(code) || CTemplate::SubfieldRepeatable(entry.tag, code) != 0;
    return fits ? current->second : NextField(entry);
}

// A field of the workform that nothing has been put into, or another one.
std::size_t Draft::NextField(const Entry& entry) {
    const char code = entry.subfields.empty() ? '\0' : entry.subfields.front().code;
    const std::size_t untouched = UntouchedField(entry.tag, code);
    if (untouched != kNone) return untouched;
    if (current_.contains(entry.tag) && CTemplate::FieldRepeatable(entry.tag) == 0) {
        throw EntryError(entry.place, "a record has this field once");
    }
    return AddField(entry.tag, code);
}

// At first one that waits for the subfield; the text of a workform is replaced only where there is
// no such field, and never by further entries.
std::size_t Draft::UntouchedField(unsigned tag, char code) const {
    const std::vector<std::size_t> places = FieldsOf(tag);
    const auto find = [&](auto matches) {
        const auto found = std::ranges::find_if(places, [&](std::size_t place) {
            const Field& field = fields_[place];
            return !field.isTouched && field.pattern != nullptr && matches(*field.pattern);
        });
        return found == places.end() ? kNone : *found;
    };
    const std::size_t waiting = find([code](const PatternField& pattern) {
        const std::string* text = pattern.Find(code);
        return text != nullptr && text->empty();
    });
    if (waiting != kNone || current_.contains(tag)) return waiting;
    const std::size_t known =
        find([code](const PatternField& pattern) { return pattern.Find(code) != nullptr; });
    return known != kNone ? known : find([](const PatternField&) { return true; });
}

std::size_t Draft::NumberedField(const Entry& entry) {
    const std::vector<std::size_t> places = FieldsOf(entry.tag);
    const auto number = static_cast<std::size_t>(entry.occurrence);
    if (number <= places.size()) return places[number - 1];
    const std::string count = std::to_string(places.size());
    if (number > places.size() + 1) {
        throw EntryError(entry.place, "so far there are " + count + " of these fields");
    }
    if (!places.empty() && CTemplate::FieldRepeatable(entry.tag) == 0) {
        throw EntryError(entry.place, "a record has this field once");
    }
    return AddField(entry.tag, entry.subfields.empty() ? '\0' : entry.subfields.front().code);
}

// Like the workform's field that waits for the subfield, or the first of the tag.
std::size_t Draft::AddField(unsigned tag, char code) {
    const PatternField* like = nullptr;
    for (const PatternField& field : pattern_.Fields()) {
        if (field.tag != tag) continue;
        const std::string* text = field.Find(code);
        const bool waits = text != nullptr && text->empty();
        if (like == nullptr || waits) like = &field;
        if (waits) break;
    }
    const std::string indicators = like != nullptr ? like->indicators : pattern_.IndicatorsOf(tag);
    fields_.push_back({tag, indicators, like, {}, false, false, false});
    return fields_.size() - 1;
}

std::vector<std::size_t> Draft::FieldsOf(unsigned tag) const {
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < fields_.size(); ++place) {
        if (fields_[place].tag == tag) places.push_back(place);
    }
    return places;
}

void Draft::TakeControlField(const Entry& entry) {
    const bool isRepeatable = entry.tag == kTag006 || entry.tag == kTag007;
    const auto behind = std::ranges::find_if(
        controlFields_, [&](const ControlField& field) { return field.tag > entry.tag; });
    const auto known =
        std::ranges::find(controlFields_, entry.tag, [](const ControlField& f) { return f.tag; });
    hasOwnDate_ = hasOwnDate_ || entry.tag == kTag008;
    if (known != controlFields_.end() && !isRepeatable) {
        known->content = entry.text;
    } else {
        controlFields_.insert(behind, {entry.tag, entry.text});
    }
}

void Draft::TakePositions(const Entry& entry) {
    if (entry.tag == 0 && IsStructure(entry.first, entry.last)) {
        throw EntryError(entry.place, "says how a record is stored, and is set when it is written");
    }
    std::string& content = entry.tag == 0 ? leader_ : ControlFieldFor(entry);
    const auto first = static_cast<std::size_t>(entry.first);
    const auto width = static_cast<std::size_t>(entry.last) - first + 1;
    if (first + width > content.size()) {
        throw EntryError(entry.place,
                         "the field has " + std::to_string(content.size()) + " characters");
    }
    if (entry.text.size() != width) {
        throw EntryError(entry.place, "\"" + entry.text + "\" is not " + std::to_string(width) +
                                          (width == 1 ? " character" : " characters"));
    }
    content.replace(first, width, entry.text);
    const bool isDate =
        entry.tag == kTag008 && entry.first <= kLastOfDate1 && kFirstOfDate1 <= entry.last;
    hasOwnDate_ = hasOwnDate_ || isDate;
}

std::string& Draft::ControlFieldFor(const Entry& entry) {
    int occurrence = std::max(entry.occurrence, 1);
    for (ControlField& field : controlFields_) {
        if (field.tag == entry.tag && --occurrence == 0) return field.content;
    }
    throw EntryError(entry.place,
                     "the record has no such field; give it whole, as " + TagText(entry.tag));
}

std::vector<Draft::Gap> Draft::Gaps() const {
    std::vector<Gap> gaps;
    std::map<unsigned, int> counts;
    for (const Field& field : fields_) {
        const int occurrence = ++counts[field.tag];
        if (field.pattern == nullptr) continue;
        for (const SubfieldText& subfield : field.pattern->subfields) {
            const bool isGap = subfield.text.empty() && !field.Has(subfield.code);
            if (isGap) gaps.push_back({field.tag, occurrence, subfield.code});
        }
    }
    return gaps;
}

}  // namespace quillory

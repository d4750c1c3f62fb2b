#include <quillory/cataloging/Draft.h>
#include <quillory/places/Tag.h>

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

// Positions of the leader that say how the record is stored: nobody's to set.
bool IsStructure(int first, int last) {
    constexpr std::array<std::pair<int, int>, 3> kStructure{{{0, 4}, {9, 16}, {20, 23}}};
    return std::ranges::any_of(
        kStructure, [=](const auto& part) { return first <= part.second && part.first <= last; });
}

[[noreturn]] void ThrowOnce(const Entry& entry) {
    throw EntryError(entry.place, "a record has this field once");
}

}  // namespace

bool Draft::Field::Has(char code) const {
    return std::ranges::find(given, code, &SubfieldText::code) != given.end();
}

// A text that was given, or the workform's own where it has not been taken away.
bool Draft::Field::IsWanted() const {
    const bool isFilled = std::ranges::any_of(
        given, [](const SubfieldText& subfield) { return !subfield.text.empty(); });
    if (isFilled || isWritten || pattern == nullptr) return isFilled;
    const SubfieldText* first = pattern->FirstOfItsOwn();
    return first != nullptr && !first->text.empty() && !Has(first->code);
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
    const std::size_t place = FieldFor(entry);
    Field& field = fields_[place];
    CheckRepeats(field, entry);
    current_[entry.tag] = place;
    field.isTouched = true;
    if (!entry.indicators.empty()) {
        field.indicators = entry.indicators;
        field.hasIndicators = true;
    }
    for (const SubfieldText& subfield : entry.subfields) field.given.push_back(subfield);
}

void Draft::CheckRepeats(const Field& field, const Entry& entry) {
    std::string codes;
    for (const SubfieldText& subfield : field.given) codes += subfield.code;
    for (const SubfieldText& subfield : entry.subfields) {
        const bool isRepeat = codes.find(subfield.code) != codes.npos;
        if (isRepeat && CTemplate::SubfieldRepeatable(entry.tag, subfield.code) == 0) {
            throw EntryError(entry.place, std::string("a field has $") + subfield.code + " once");
        }
        codes += subfield.code;
    }
}

void Draft::TakeWrittenField(const Entry& entry) {
    const std::size_t place = entry.occurrence != 0 ? NumberedField(entry) : NextField(entry);
    if (!fields_[place].given.empty()) {
        throw EntryError(entry.place, "something was said of this field before");
    }
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
        ThrowOnce(entry);
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
        ThrowOnce(entry);
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

// Fields 006 and 007 repeat: what is given goes behind those of the workform, or in the place of
// the one that was named.
void Draft::TakeControlField(const Entry& entry) {
    const bool isRepeatable = entry.tag == kTag006 || entry.tag == kTag007;
    if (entry.occurrence == 0 && !given_.insert(entry.tag).second && !isRepeatable) {
        ThrowOnce(entry);
    }
    hasOwnDate_ = hasOwnDate_ || entry.tag == kTag008;
    const bool isAnother = isRepeatable && entry.occurrence == 0 && !entry.text.empty();
    const auto known = isAnother ? controlFields_.end() : FindControlField(entry);
    if (known != controlFields_.end()) {
        known->content = entry.text;
        return;
    }
    if (entry.occurrence > 1) {
        throw EntryError(entry.place, "the record has not so many of these fields");
    }
    const auto behind = std::ranges::find_if(
        controlFields_, [&](const ControlField& field) { return field.tag > entry.tag; });
    controlFields_.insert(behind, {entry.tag, entry.text});
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

std::vector<ControlField>::iterator Draft::FindControlField(const Entry& entry) {
    int left = std::max(entry.occurrence, 1);
    return std::ranges::find_if(controlFields_, [&](const ControlField& field) {
        return field.tag == entry.tag && !field.content.empty() && --left == 0;
    });
}

std::string& Draft::ControlFieldFor(const Entry& entry) {
    const auto found = FindControlField(entry);
    if (found != controlFields_.end()) return found->content;
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

#include <quillory/cataloging/Draft.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/places/Tag.h>

#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace quillory {
namespace {

using zorby::CTemplate;

constexpr std::size_t kNone = static_cast<std::size_t>(-1);
constexpr int kFirstOfDate1 = 7;
constexpr int kLastOfDate1 = 10;

std::string Day(const std::tm& day) {
    std::array<char, 8> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%y%m%d", &day)};
}

// Positions of the leader that say how the record is stored. They are set when it is written.
bool IsStructure(int first, int last) {
    constexpr std::array<std::pair<int, int>, 3> kStructure{{{0, 4}, {9, 16}, {20, 23}}};
    return std::ranges::any_of(
        kStructure, [=](const auto& part) { return first <= part.second && part.first <= last; });
}

[[noreturn]] void ThrowOnce(const Entry& entry) {
    throw EntryError({FaultCode::kOnlyOneField, entry.place});
}

[[noreturn]] void ThrowTooFew(const Entry& entry, std::size_t count) {
    throw EntryError({FaultCode::kTooFewFields, entry.place, std::to_string(count)});
}

}  // namespace

bool Draft::Field::Has(char code) const {
    return std::ranges::find(given, code, &SubfieldText::code) != given.end();
}

// Whether there is a text that was given, or one of the workform that was not taken away.
bool Draft::Field::IsWanted() const {
    const bool isFilled = std::ranges::any_of(
        given, [](const SubfieldText& subfield) { return !subfield.text.empty(); });
    if (isFilled || isWritten || pattern == nullptr) return isFilled;
    const SubfieldText* first = pattern->FirstOfItsOwn();
    return first != nullptr && !first->text.empty() && !Has(first->code);
}

Draft::Draft(const Pattern& pattern, const std::tm& day, bool putsMarks)
    : pattern_(pattern),
      putsMarks_(putsMarks),
      leader_(pattern.Leader()),
      controlFields_(pattern.ControlFields()) {
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
    const std::size_t index = FieldFor(entry);
    Field& field = fields_[index];
    CheckRepeats(field, entry);
    current_[entry.Tag()] = index;
    field.isTouched = true;
    if (!entry.indicators.empty()) {
        field.indicators = entry.indicators;
        field.hasIndicators = true;
    }
    for (const SubfieldText& subfield : entry.subfields) field.given.push_back(subfield);
}

void Draft::CheckRepeats(const Field& field, const Entry& entry) {
    std::string codes;
    for (const SubfieldText& subfield : entry.subfields) {
        const bool isRepeat = field.Has(subfield.code) || codes.find(subfield.code) != codes.npos;
        if (isRepeat && CTemplate::SubfieldRepeatable(entry.Tag(), subfield.code) == 0) {
            throw EntryError({FaultCode::kOnlyOneSubfield, entry.place, {subfield.code}});
        }
        codes += subfield.code;
    }
}

void Draft::TakeWrittenField(const Entry& entry) {
    const std::size_t index = entry.place.occurrence != 0 ? NumberedField(entry) : NextField(entry);
    if (!fields_[index].given.empty()) {
        throw EntryError({FaultCode::kFieldGivenBefore, entry.place});
    }
    current_[entry.Tag()] = index;
    fields_[index] = {entry.Tag(), entry.indicators, nullptr, entry.subfields, true, true, true};
}

std::size_t Draft::FieldFor(const Entry& entry) {
    if (entry.place.occurrence != 0) return NumberedField(entry);
    const auto current = current_.find(entry.Tag());
    if (current == current_.end() || entry.kind == EntryKind::Field || entry.subfields.empty()) {
        return NextField(entry);
    }
    const char code = entry.subfields.front().code;
    const Field& field = fields_[current->second];
    const bool fits = !field.Has(code) || CTemplate::SubfieldRepeatable(entry.Tag(), code) != 0;
    return fits ? current->second : NextField(entry);
}

// A field of the workform that nothing has gone into yet, or a new one.
std::size_t Draft::NextField(const Entry& entry) {
    const char code = entry.subfields.empty() ? '\0' : entry.subfields.front().code;
    const std::size_t untouched = UntouchedField(entry.Tag(), code);
    if (untouched != kNone) return untouched;
    if (current_.contains(entry.Tag()) && CTemplate::FieldRepeatable(entry.Tag()) == 0) {
        ThrowOnce(entry);
    }
    return AddField(entry.Tag(), code);
}

// A field that has the subfield without a text is the first choice. Only the first entry of a tag
// may replace a text of the workform. Those of the workform come first; any other field was made
// for what it holds.
std::size_t Draft::UntouchedField(unsigned tag, char code) const {
    const auto ofWorkform = std::span(fields_).first(pattern_.Fields().size());
    const auto find = [&](auto matches) {
        const auto found = std::ranges::find_if(ofWorkform, [&](const Field& field) {
            return field.tag == tag && !field.isTouched && matches(*field.pattern);
        });
        return found == ofWorkform.end() ? kNone
                                         : static_cast<std::size_t>(found - ofWorkform.begin());
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
    const std::vector<std::size_t> indexes = FieldsOf(entry.Tag());
    const std::size_t number = entry.place.occurrence;
    if (number <= indexes.size()) return indexes[number - 1];
    if (number > indexes.size() + 1) ThrowTooFew(entry, indexes.size());
    if (!indexes.empty() && CTemplate::FieldRepeatable(entry.Tag()) == 0) ThrowOnce(entry);
    return AddField(entry.Tag(), entry.subfields.empty() ? '\0' : entry.subfields.front().code);
}

// A field like that of the workform which has the subfield without a text, or the first of the tag.
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
    std::vector<std::size_t> indexes;
    for (std::size_t index = 0; index < fields_.size(); ++index) {
        if (fields_[index].tag == tag) indexes.push_back(index);
    }
    return indexes;
}

// Fields 006 and 007 repeat: what is given comes after those of the workform, or replaces the one
// that was named.
void Draft::TakeControlField(const Entry& entry) {
    const unsigned tag = entry.Tag();
    const bool isRepeatable = tag == kTag006 || tag == kTag007;
    if (entry.place.occurrence == 0 && !given_.insert(tag).second && !isRepeatable) {
        ThrowOnce(entry);
    }
    hasOwnDate_ = hasOwnDate_ || tag == kTag008;
    const bool isAnother = isRepeatable && entry.place.occurrence == 0 && !entry.text.empty();
    const auto known = isAnother ? controlFields_.end() : FindControlField(entry);
    if (known != controlFields_.end()) {
        known->content = entry.text;
        return;
    }
    if (entry.place.occurrence > 1) ThrowTooFew(entry, CountControlFields(tag));
    const auto next = std::ranges::find_if(
        controlFields_, [tag](const ControlField& field) { return field.tag > tag; });
    controlFields_.insert(next, {tag, entry.text});
}

void Draft::TakePositions(const Entry& entry) {
    const Place& place = entry.place;
    if (place.IsLeader() && IsStructure(place.first, place.last)) {
        throw EntryError({FaultCode::kStorageOfLeader, place});
    }
    std::string& content = place.IsLeader() ? leader_ : ControlFieldFor(entry);
    const auto first = static_cast<std::size_t>(place.first);
    const auto width = static_cast<std::size_t>(place.last) - first + 1;
    if (first + width > content.size()) {
        throw EntryError({FaultCode::kBeyondField, place, std::to_string(content.size())});
    }
    if (entry.text.size() != width) {
        throw EntryError({FaultCode::kWrongWidth, place, entry.text, std::to_string(width)});
    }
    content.replace(first, width, entry.text);
    const bool isDate =
        entry.Tag() == kTag008 && place.first <= kLastOfDate1 && kFirstOfDate1 <= place.last;
    hasOwnDate_ = hasOwnDate_ || isDate;
}

std::vector<ControlField>::iterator Draft::FindControlField(const Entry& entry) {
    std::uint32_t left = std::max(entry.place.occurrence, 1U);
    return std::ranges::find_if(controlFields_, [&](const ControlField& field) {
        return field.tag == entry.Tag() && !field.content.empty() && --left == 0;
    });
}

std::size_t Draft::CountControlFields(unsigned tag) const {
    const auto isOne = [tag](const ControlField& field) {
        return field.tag == tag && !field.content.empty();
    };
    return static_cast<std::size_t>(std::ranges::count_if(controlFields_, isOne));
}

std::string& Draft::ControlFieldFor(const Entry& entry) {
    const auto found = FindControlField(entry);
    if (found != controlFields_.end()) return found->content;
    throw EntryError({FaultCode::kNoFieldForPositions, entry.place});
}

std::vector<Place> Draft::Gaps() const {
    std::vector<Place> gaps;
    std::map<unsigned, std::uint32_t> counts;
    for (const Field& field : fields_) {
        const Place place = Place::OfField(field.tag, ++counts[field.tag]);
        if (field.pattern == nullptr) continue;
        for (const SubfieldText& subfield : field.pattern->subfields) {
            const bool isGap = subfield.text.empty() && !field.Has(subfield.code);
            if (isGap) gaps.push_back(place.Subfield(subfield.code));
        }
    }
    return gaps;
}

}  // namespace quillory

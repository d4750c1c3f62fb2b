#include <zorby/record/CommFormat.h>
#include <zorby/record/Pmarc.h>

#include <algorithm>
#include <array>
#include <utility>

namespace zorby {
namespace {

constexpr unsigned kFirstDataTag = 10;
constexpr unsigned kLastTag = 999;
constexpr std::size_t kTagSize = 3;
constexpr std::size_t kIndicatorEnd = 5;
constexpr char kDot = '\xB7';
constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";

using TagBytes = std::array<char, kTagSize>;

TagBytes Digits(unsigned tag) {
    return {static_cast<char>('0' + tag / 100 % 10), static_cast<char>('0' + tag / 10 % 10),
            static_cast<char>('0' + tag % 10)};
}

std::string_view View(const TagBytes& tag) {
    return {tag.data(), tag.size()};
}

// Orders tags as their bytes do; missing bytes come first.
std::uint32_t TagOrder(std::string_view tag) {
    std::uint32_t order = 0;
    for (std::size_t i = 0; i < kTagSize; ++i) {
        order = order << 8 | (i < tag.size() ? static_cast<unsigned char>(tag[i]) : 0U);
    }
    return order;
}

constexpr bool IsMixed(std::uint32_t place) {
    return place == std::uint32_t{'5'} << 16 || place == std::uint32_t{'6'} << 16;
}

// All of 5XX, and all of 6XX, have one place.
std::uint32_t PlaceOf(std::uint32_t tag) {
    const std::uint32_t block = tag & 0xFF0000U;
    return IsMixed(block) ? block : tag;
}

std::string_view Stripped(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kWhiteSpace);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(kWhiteSpace) + 1 - first);
}

// The text may be part of the field, whose old bytes stay until the new ones are there.
void AppendSubfield(std::string& field, char code, std::string_view text) {
    const std::size_t size = field.size() + text.size() + 2;
    std::string grown;
    grown.reserve(std::max(size, 2 * field.size()));
    grown.append(field);
    if (code != 0) grown.append({kDelimiter, code});
    grown.append(text);
    field.swap(grown);
}

char WithoutUnderscore(char indicator) {
    return indicator == '_' ? ' ' : indicator;
}

}  // namespace

CPmarc::~CPmarc() = default;

void CPmarc::Run::Append(std::uint32_t tag, std::string_view tagBytes, std::string_view content) {
    if (IsMixed(place)) {
        auto found = std::find_if(tags.begin(), tags.end(),
                                  [tag](const Positions& entry) { return entry.tag == tag; });
        if (found == tags.end()) found = tags.insert(found, {tag, {}});
        found->at.push_back(static_cast<std::uint32_t>(fields.size()));
    }
    std::string field;
    field.reserve(tagBytes.size() + content.size());
    field.append(tagBytes).append(content);
    fields.push_back(std::move(field));
}

const CPmarc::Run::Positions* CPmarc::Run::PositionsOf(std::uint32_t tag) const {
    const auto found = std::find_if(tags.begin(), tags.end(),
                                    [tag](const Positions& entry) { return entry.tag == tag; });
    return found == tags.end() ? nullptr : &*found;
}

std::size_t CPmarc::Run::Count(std::uint32_t tag) const {
    if (!IsMixed(place)) return fields.size();
    const Positions* positions = PositionsOf(tag);
    return positions == nullptr ? 0 : positions->at.size();
}

// `occurrence` counts from 0 here, and is below Count.
std::size_t CPmarc::Run::Position(std::uint32_t tag, std::size_t occurrence) const {
    return IsMixed(place) ? PositionsOf(tag)->at[occurrence] : occurrence;
}

void CPmarc::FieldAppend(std::string_view tag, std::string_view content) {
    const std::uint32_t order = TagOrder(tag);
    const std::uint32_t place = PlaceOf(order);
    if (runs_.empty() || runs_.back().place != place) runs_.emplace_back().place = place;
    runs_.back().Append(order, tag, content);
}

int CPmarc::FieldNew(int tag, int& occurrence) {
    occurrence = 0;
    if (tag < 0 || tag > static_cast<int>(kLastTag)) return -1;
    const auto number = static_cast<unsigned>(tag);
    const TagBytes bytes = Digits(number);
    const std::uint32_t order = TagOrder(View(bytes));
    const std::uint32_t place = PlaceOf(order);

    std::size_t index = 0;
    std::size_t sameTag = 0;
    auto run = runs_.begin();
    for (; run != runs_.end() && run->place <= place; ++run) {
        index += run->fields.size();
        if (run->place == place) sameTag += run->Count(order);
    }
    if (run == runs_.begin() || (run - 1)->place != place) {
        run = runs_.insert(run, Run{place, {}, {}}) + 1;
    }
    (run - 1)->Append(order, View(bytes), number < kFirstDataTag ? "" : "  ");
    occurrence = static_cast<int>(sameTag) + 1;
    return static_cast<int>(index);
}

CPmarc::Place CPmarc::Find(unsigned tag, int occurrence) {
    if (tag > kLastTag || occurrence < 1) return {};
    const TagBytes bytes = Digits(tag);
    const std::uint32_t order = TagOrder(View(bytes));
    const std::uint32_t place = PlaceOf(order);
    auto left = static_cast<std::size_t>(occurrence) - 1;
    std::size_t index = 0;
    for (Run& run : runs_) {
        if (run.place == place) {
            const std::size_t count = run.Count(order);
            if (left < count) {
                const std::size_t position = run.Position(order, left);
                return {&run, position, index + position};
            }
            left -= count;
        }
        index += run.fields.size();
    }
    return {};
}

std::string* CPmarc::FindField(unsigned tag, int occurrence) {
    const Place place = Find(tag, occurrence);
    return place.run == nullptr ? nullptr : &place.run->fields[place.position];
}

int CPmarc::FieldGetIndexForTagOccurance(unsigned tag, int occurrence) const {
    const Place place = const_cast<CPmarc*>(this)->Find(tag, occurrence);
    return place.run == nullptr ? -1 : static_cast<int>(place.index);
}

int CPmarc::FieldExists(int tag, int occurrence) const {
    if (tag < 0) return 0;
    return FieldGetIndexForTagOccurance(static_cast<unsigned>(tag), occurrence) >= 0 ? 1 : 0;
}

int CPmarc::FieldSetIndicators(unsigned tag, int occurrence, char first, char second) {
    if (tag < kFirstDataTag) return 0;
    std::string* field = FindField(tag, occurrence);
    if (field == nullptr) return 0;
    if (field->size() < kIndicatorEnd) field->append(2, ' ');
    (*field)[3] = WithoutUnderscore(first);
    (*field)[4] = WithoutUnderscore(second);
    return 1;
}

int CPmarc::AddOneSubfield(unsigned tag, int occurrence, char code, std::string_view text) {
    if (tag < kFirstDataTag) return 0;
    std::string* field = FindField(tag, occurrence);
    if (field == nullptr) return 0;
    if (field->size() < kIndicatorEnd) field->append(2, ' ');
    AppendSubfield(*field, code, text);
    return 1;
}

// Only a separator at the very start keeps the text whole; a text without any is stripped too.
int CPmarc::FieldAddSubfield(unsigned tag, int occurrence, char code, std::string_view text,
                             char separator) {
    if (separator == 0 || text.find(separator) == 0) {
        return AddOneSubfield(tag, occurrence, code, text);
    }
    const std::string whole(text);
    for (text = whole;;) {
        const std::size_t end = text.find(separator);
        if (AddOneSubfield(tag, occurrence, code, Stripped(text.substr(0, end))) == 0) return 0;
        if (end == text.npos) return 1;
        text.remove_prefix(end + 1);
    }
}

int CPmarc::FieldAddControlField(unsigned tag, int occurrence, std::string_view text,
                                 int dotsToBlanks) {
    if (tag >= kFirstDataTag || text.empty()) return 0;
    std::string* field = FindField(tag, occurrence);
    if (field == nullptr) {
        const std::string own(text);  // a new field may move the others
        FieldNew(static_cast<int>(tag), occurrence);
        field = FindField(tag, occurrence);
        field->append(own);
    } else {
        field->append(text);
    }
    if (dotsToBlanks != 0) std::replace(field->begin(), field->end(), kDot, ' ');
    return 1;
}

void CPmarc::AstaAdd(unsigned tag, char first, char second, char code, int newField,
                     std::string_view text) {
    const std::string own(text);  // a new field may move the others
    int occurrence = 1;
    if (newField != 0 || FindField(tag, 1) == nullptr) FieldNew(static_cast<int>(tag), occurrence);
    FieldSetIndicators(tag, occurrence, first == kDot ? ' ' : first, second == kDot ? ' ' : second);
    if (tag < kFirstDataTag) {
        FieldAddControlField(tag, occurrence, own, 1);
    } else {
        FieldAddSubfield(tag, occurrence, code, own, 0);
    }
}

void CPmarc::Clear() {
    runs_.clear();
}

std::size_t CPmarc::FieldCount() const {
    std::size_t count = 0;
    for (const Run& run : runs_) count += run.fields.size();
    return count;
}

}  // namespace zorby

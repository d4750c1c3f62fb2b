#include <zorby/record/CommFormat.h>
#include <zorby/record/Pmarc.h>
#include <zorby/record/detail/FieldParts.h>
#include <zorby/text/detail/WhiteSpace.h>

#include <algorithm>
#include <array>
#include <utility>

namespace zorby {
namespace {

constexpr unsigned kFirstDataTag = 10;
constexpr unsigned kLastTag = 999;
constexpr std::size_t kIndicatorEnd = 5;
constexpr char kDot = '\xB7';

using TagBytes = std::array<char, kTagSize>;

TagBytes Digits(unsigned tag) {
    return {static_cast<char>('0' + tag / 100 % 10), static_cast<char>('0' + tag / 10 % 10),
            static_cast<char>('0' + tag % 10)};
}

std::string_view View(const TagBytes& tag) {
    return {tag.data(), tag.size()};
}

// Returns a number that orders tags as their bytes do. Missing bytes come first.
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

// All tags 5XX have one place, and so have all tags 6XX.
std::uint32_t PlaceOf(std::uint32_t tag) {
    const std::uint32_t block = tag & 0xFF0000U;
    return IsMixed(block) ? block : tag;
}

void AppendSubfieldInPlace(std::string& field, char code, std::string_view text) {
    if (code != 0) {
        field += kDelimiter;
        field += code;
    }
    field.append(text);
}

// The text may be part of the field, so the old bytes must stay until the new ones are there.
void AppendSubfield(std::string& field, char code, std::string_view text) {
    constexpr std::size_t kRoomAhead = 48;  // for another subfield or two
    const std::size_t size = field.size() + text.size() + 2;
    if (size <= field.capacity()) {
        AppendSubfieldInPlace(field, code, text);
        return;
    }
    std::string grown;
    grown.reserve(std::max(size + kRoomAhead, 2 * field.size()));
    grown.append(field);
    AppendSubfieldInPlace(grown, code, text);
    field.swap(grown);
}

// Adding a field may move the others, and with them the bytes of short strings, which have no
// memory of their own. So a text that may be in such a string is copied to `copy`, which must be
// empty.
std::string_view Unmoved(std::string_view text, std::string& copy) {
    if (text.size() > copy.capacity()) return text;
    copy = text;
    return copy;
}

char WithoutUnderscore(char indicator) {
    return indicator == '_' ? ' ' : indicator;
}

}  // namespace

CPmarc::CPmarc(CPmarc&& other) noexcept {
    *this = std::move(other);
}

CPmarc& CPmarc::operator=(CPmarc&& other) noexcept {
    fields_ = std::exchange(other.fields_, {});
    runs_ = std::exchange(other.runs_, {});
    last_ = std::exchange(other.last_, {});
    sorted_ = std::exchange(other.sorted_, true);
    return *this;
}

CPmarc::~CPmarc() = default;

std::uint32_t CPmarc::Run::Count(std::uint32_t tag) const {
    if (!IsMixed(place)) return count;
    const auto found = std::find_if(tags.begin(), tags.end(),
                                    [tag](const TagCount& entry) { return entry.tag == tag; });
    return found == tags.end() ? 0 : found->count;
}

void CPmarc::Run::CountOneMore(std::uint32_t tag) {
    ++count;
    if (!IsMixed(place)) return;
    auto found = std::find_if(tags.begin(), tags.end(),
                              [tag](const TagCount& entry) { return entry.tag == tag; });
    if (found == tags.end()) found = tags.insert(found, {tag, 0});
    ++found->count;
}

void CPmarc::InsertRun(std::size_t at, std::uint32_t place) {
    constexpr std::size_t kUsualRuns = 32;
    constexpr std::size_t kUsualFields = 48;
    if (runs_.empty()) {
        runs_.reserve(kUsualRuns);
        fields_.reserve(kUsualFields);
    }
    const auto run = runs_.emplace(runs_.begin() + static_cast<std::ptrdiff_t>(at));
    run->place = place;
}

// Puts a field at the end of a run and returns its number.
std::uint32_t CPmarc::Append(std::size_t run, std::string_view tag, std::string_view content) {
    const auto number = static_cast<std::uint32_t>(fields_.size());
    Field field;
    field.text.reserve(tag.size() + content.size());
    field.text.append(tag).append(content);
    fields_.push_back(std::move(field));
    Run& home = runs_[run];
    (home.last == kNone ? home.first : fields_[home.last].next) = number;
    home.last = number;
    home.CountOneMore(TagOrder(tag));
    return number;
}

void CPmarc::FieldAppend(std::string_view tag, std::string_view content) {
    const std::uint32_t place = PlaceOf(TagOrder(tag));
    if (runs_.empty() || runs_.back().place != place) {
        sorted_ = sorted_ && (runs_.empty() || runs_.back().place < place);
        InsertRun(runs_.size(), place);
    }
    Append(runs_.size() - 1, tag, content);
}

// Finds where a new field goes: after all runs that come before it, or at the end of its own.
CPmarc::Gap CPmarc::FindGap(std::uint32_t place, std::uint32_t tag) const {
    Gap gap;
    if (sorted_ && !runs_.empty() && runs_.back().place <= place) {
        gap.run = runs_.size() - 1;
        gap.index = fields_.size() - runs_.back().count;
    }
    for (; gap.run < runs_.size() && runs_[gap.run].place <= place; ++gap.run) {
        const Run& run = runs_[gap.run];
        gap.index += run.count;
        if (run.place == place) gap.sameTag += run.Count(tag);
    }
    return gap;
}

int CPmarc::FieldNew(int tag, int& occurrence) {
    occurrence = 0;
    if (tag < 0 || tag > static_cast<int>(kLastTag)) return -1;
    const auto number = static_cast<unsigned>(tag);
    const TagBytes bytes = Digits(number);
    const std::uint32_t order = TagOrder(View(bytes));
    const std::uint32_t place = PlaceOf(order);
    Gap gap = FindGap(place, order);
    if (gap.run == 0 || runs_[gap.run - 1].place != place) InsertRun(gap.run++, place);
    const std::uint32_t field =
        Append(gap.run - 1, View(bytes), number < kFirstDataTag ? "" : "  ");
    occurrence = static_cast<int>(gap.sameTag) + 1;
    last_ = {number, occurrence, field, static_cast<int>(gap.index)};
    return last_.index;
}

// Finds the field with the same tag, `steps` occurrences further in the same run. Finds none if
// there are fewer.
CPmarc::Place CPmarc::FindFurther(const Place& from, int steps) const {
    const TagBytes bytes = Digits(from.tag);
    Place place = from;
    place.occurrence += steps;
    while (steps > 0) {
        place.field = fields_[place.field].next;
        if (place.field == kNone) return {};
        ++place.index;
        if (TagOf(fields_[place.field].text) == View(bytes)) --steps;
    }
    return place;
}

CPmarc::Place CPmarc::Search(unsigned tag, int occurrence) const {
    if (tag > kLastTag || occurrence < 1) return {};
    if (last_.tag == tag && last_.occurrence == occurrence) return last_;
    if (last_.tag == tag && last_.occurrence != 0 && last_.occurrence < occurrence) {
        const Place place = FindFurther(last_, occurrence - last_.occurrence);
        if (place.occurrence != 0) return place;
    }
    const TagBytes bytes = Digits(tag);
    const std::uint32_t order = TagOrder(View(bytes));
    Place before{tag, 0, kNone, -1};
    for (const Run& here : runs_) {
        const int count = here.place == PlaceOf(order) ? static_cast<int>(here.Count(order)) : 0;
        if (before.occurrence + count >= occurrence && count > 0) {
            const bool isFirst = TagOf(fields_[here.first].text) == View(bytes);
            const Place first{tag, before.occurrence + (isFirst ? 1 : 0), here.first,
                              before.index + 1};
            return FindFurther(first, occurrence - first.occurrence);
        }
        before.occurrence += count;
        before.index += static_cast<int>(here.count);
    }
    return {};
}

std::string* CPmarc::FindField(unsigned tag, int occurrence) {
    const Place place = Search(tag, occurrence);
    if (place.occurrence == 0) return nullptr;
    last_ = place;
    return &fields_[place.field].text;
}

int CPmarc::FieldGetIndexForTagOccurance(unsigned tag, int occurrence) const {
    return Search(tag, occurrence).index;
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

// Only a separator at the very start keeps the text whole. A text without a separator is stripped
// too.
int CPmarc::FieldAddSubfield(unsigned tag, int occurrence, char code, std::string_view text,
                             char separator) {
    if (separator == 0 || text.find(separator) == 0) {
        return AddOneSubfield(tag, occurrence, code, text);
    }
    const std::string whole(text);
    for (text = whole;;) {
        const std::size_t end = text.find(separator);
        if (AddOneSubfield(tag, occurrence, code, Trimmed(text.substr(0, end))) == 0) return 0;
        if (end == text.npos) return 1;
        text.remove_prefix(end + 1);
    }
}

int CPmarc::FieldAddControlField(unsigned tag, int occurrence, std::string_view text,
                                 int dotsToBlanks) {
    if (tag >= kFirstDataTag || text.empty()) return 0;
    std::string* field = FindField(tag, occurrence);
    if (field == nullptr) {
        std::string copy;
        text = Unmoved(text, copy);
        FieldNew(static_cast<int>(tag), occurrence);
        field = FindField(tag, occurrence);
        field->append(text);
    } else {
        field->append(text);
    }
    if (dotsToBlanks != 0) std::replace(field->begin(), field->end(), kDot, ' ');
    return 1;
}

void CPmarc::AstaAdd(unsigned tag, char first, char second, char code, int newField,
                     std::string_view text) {
    std::string copy;
    text = Unmoved(text, copy);
    int occurrence = 1;
    if (newField != 0 || FindField(tag, 1) == nullptr) FieldNew(static_cast<int>(tag), occurrence);
    FieldSetIndicators(tag, occurrence, first == kDot ? ' ' : first, second == kDot ? ' ' : second);
    if (tag < kFirstDataTag) {
        FieldAddControlField(tag, occurrence, text, 1);
    } else {
        FieldAddSubfield(tag, occurrence, code, text, 0);
    }
}

void CPmarc::Clear() {
    fields_.clear();
    runs_.clear();
    sorted_ = true;
    last_ = {};
}

std::size_t CPmarc::FieldCount() const {
    return fields_.size();
}

}  // namespace zorby

#include <quillory/coded/Material.h>
#include <quillory/edits/CodedChange.h>
#include <quillory/edits/NewCodedFields.h>
#include <zorby/record/CommFormat.h>

#include <algorithm>
#include <array>

namespace quillory {
namespace {

using namespace zorby;
constexpr std::size_t kTypeOfRecord = 6;  // in the Leader

const Element* OfSameName(const Element& element, CFType form) {
    const auto& elements = ElementsOf(form);
    const auto found = std::ranges::find(elements, element.name, &Element::name);
    const bool isUsable = found != elements.end() && !found->IsUndefined() && found->first > 0;
    return isUsable ? &*found : nullptr;
}

std::string_view ValueOf(const Element& element, std::string_view content) {
    const auto first = static_cast<std::size_t>(element.first);
    const auto width = static_cast<std::size_t>(element.Width());
    return content.size() < first + width ? std::string_view() : content.substr(first, width);
}

// Whether both elements know these codes, and by the same words.
bool MeansTheSame(std::string_view value, const Element& from, const Element& to,
                  const CodeLists& lists) {
    const auto codes = lists.CodesIn(from, value);
    return std::ranges::all_of(codes, [&](const CodeMeaning& code) {
        const CodeMeaning there = lists.Find(to, code.code);
        return there.state != CodeState::Unknown && there.text == code.text;
    });
}

// The content of a 006 or 007, or 008/18-34 in the shape of a 006, in the form `to`. `content`
// begins as a new field of that form does.
void KeepWhatFits(std::string_view given, CFType from, CFType to, const CodeLists& lists,
                  std::string& content) {
    for (const Element& element : ElementsOf(to)) {
        const Element* old = element.first == 0 ? nullptr : OfSameName(element, from);
        if (old == nullptr || old->Width() != element.Width()) continue;
        const std::string_view value = ValueOf(*old, given);
        if (value.empty() || !MeansTheSame(value, *old, element, lists)) continue;
        content.replace(static_cast<std::size_t>(element.first), value.size(), value);
    }
}

bool IsKnown(CFType form) {
    return IsFormOf006(form) || IsFormOf007(form);
}

constexpr auto kFirst = static_cast<std::size_t>(kFirstMaterial008);
constexpr auto kSize = static_cast<std::size_t>(kLastMaterial008) + 1 - kFirst;

// What an 008 says of its material, in the shape of a 006. Empty for one that ends before.
std::string MaterialPart(const std::string& field008) {
    return field008.size() < kFirst + kSize ? std::string() : ' ' + field008.substr(kFirst, kSize);
}

void Change008(CFType from, CFType to, char letter, const CodeLists& lists, std::string& content) {
    const std::string given = MaterialPart(content);
    if (given.empty()) return;
    std::string changed = NewContentOf(to, letter);
    KeepWhatFits(given, from, to, lists, changed);
    content.replace(kFirst, kSize, changed, 1, kSize);
}

// By the form that it is read by, in the shape of a 006 or 007.
struct ShapedField {
    CFType form;
    std::string content;
};

ShapedField Shaped(const RecordState& record, std::size_t field) {
    const auto& [tag, content, given] = record.fields[field];
    return {FormOfCoded(record, field), tag == "008" ? MaterialPart(content) : content};
}

void AddLost(const ShapedField& before, const ShapedField& after, std::vector<std::string>& names) {
    if (before.form == after.form || !IsKnown(before.form) || !IsKnown(after.form)) return;
    if (before.content.empty()) return;
    const std::string usual = NewContentOf(before.form, before.content.front());
    for (const Element& element : ElementsOf(before.form)) {
        const std::string_view value = ValueOf(element, before.content);
        const bool saysMore = element.first > 0 && !element.IsUndefined() &&
                              value != ValueOf(element, usual) && !IsAll(value, ' ') &&
                              !IsAll(value, kFill);
        if (!saysMore) continue;
        const Element* there = OfSameName(element, after.form);
        if (there == nullptr || ValueOf(*there, after.content) != value) {
            names.emplace_back(element.name);
        }
    }
}

std::string WithMaterial(std::string_view given, CFType from, CFType to, const CodeLists& lists) {
    std::string content = NewContentOf(to, given.front());
    KeepWhatFits(given, from, to, lists, content);
    return content;
}

void Put(std::size_t first, std::string_view value, char fill, std::string& content) {
    if (content.size() < first + value.size()) content.resize(first + value.size(), fill);
    content.replace(first, value.size(), value);
}

}  // namespace

bool BelongsToTheFile(const Place& place) {
    struct Range {
        int first;
        int last;
    };
    constexpr std::array<Range, 3> kOfTheFile{{{0, 4}, {9, 16}, {20, 23}}};
    return place.IsLeader() && std::ranges::any_of(kOfTheFile, [&place](const Range& range) {
               return place.first <= range.last && range.first <= place.last;
           });
}

CFType FormOfCoded(const RecordState& record, std::optional<std::size_t> field) {
    if (!field) return CFLdr;
    const auto& [tag, content, given] = record.fields[*field];
    if (tag == "008") return MaterialOfLeader(record.leader);
    return tag == "006" ? MaterialOf006(content) : CategoryOf007(content);
}

RecordState WithCoded(RecordState record, std::optional<std::size_t> field, std::size_t first,
                      std::string_view value, const CodeLists& lists) {
    if (field) {
        const CFType from = FormOfCoded(record, field);
        std::string& content = record.fields[*field].content;
        Put(first, value, kFill, content);
        const CFType to = FormOfCoded(record, field);
        if (from != to && IsKnown(from) && IsKnown(to)) {
            content = WithMaterial(content, from, to, lists);
        }
        return record;
    }
    const CFType from = MaterialOfLeader(record.leader);
    Put(first, value, ' ', record.leader);
    const CFType to = MaterialOfLeader(record.leader);
    if (from == to || !IsKnown(from) || !IsKnown(to)) return record;
    for (auto& [tag, content, given] : record.fields) {
        if (tag == "008") Change008(from, to, record.leader[kTypeOfRecord], lists, content);
    }
    return record;
}

std::vector<std::string> NamesOfLost(const RecordState& before, const RecordState& after) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < std::min(before.fields.size(), after.fields.size()); ++i) {
        const std::string& tag = before.fields[i].tag;
        const bool isOfMaterial = tag == "006" || tag == "007" || tag == "008";
        if (isOfMaterial) AddLost(Shaped(before, i), Shaped(after, i), names);
    }
    return names;
}

}  // namespace quillory

#include <quillory/cards/Headings.h>
#include <quillory/cards/Punctuation.h>
#include <quillory/places/Tag.h>
#include <quillory/text/LetterCase.h>

#include <algorithm>
#include <array>
#include <utility>

namespace quillory {
namespace {

// Subfields that are for machines, and say what a person did: no parts of a heading.
constexpr std::string_view kNotOfHeading = "0123456789euwix";
// In the name of a meeting, $e is a part of it, and $j says what it did.
constexpr std::string_view kNotOfMeeting = "0123456789juwix";
constexpr std::string_view kSubdivisions = "vxyz";

constexpr std::array<std::string_view, 4> kMainTags{"100", "110", "111", "130"};
constexpr std::array<std::string_view, 4> kNameTags{"700", "710", "711", "720"};
constexpr std::array<std::string_view, 3> kTitleTags{"246", "730", "740"};
constexpr std::array<std::string_view, 6> kSeriesTags{"440", "800", "810", "811", "830", "840"};

template <class Tags>
bool IsIn(const Tags& tags, std::string_view tag) {
    return std::ranges::find(tags, tag) != tags.end();
}

std::string_view NotOfHeading(const CardField& field) {
    return field.tag.ends_with("11") ? kNotOfMeeting : kNotOfHeading;
}

std::string HeadingOf(const CardField& field) {
    return WithFullStop(Joined(field, NotOfHeading(field), false));
}

// What is said of a field in another script has its own punctuation.
std::string OtherHeading(const CardField& field) {
    if (field.other.empty()) return {};
    return WithoutLastMark(Joined(field.other.front(), NotOfHeading(field), true));
}

// 653 (free index terms) and 662 on are no headings of a list; 69X are the library's own.
bool IsSubject(std::string_view tag) {
    const unsigned number = TagNumber(tag);
    return (number >= 600 && number <= 662 && number != 653) || (number >= 690 && number <= 699);
}

bool IsOfThesaurus(const CardField& field, SubjectChoice choice) {
    switch (choice) {
        case kSubjectsLc:
            return field.second == '0';
        case kSubjectsLcChildrens:
            return field.second == '1';
        case kSubjectsSears:
            return field.second == '7' && field.Text('2').starts_with("sears");
        default:
            return true;
    }
}

std::string SubjectText(const CardField& field) {
    std::string text;
    for (const auto& [code, part] : field.subfields) {
        if (NotOfHeading(field).find(code) != std::string_view::npos && code != 'x') continue;
        const bool isSubdivision = kSubdivisions.find(code) != kSubdivisions.npos;
        if (text.ends_with('-')) text += ' ';  // of years that go on: "1949- --Interviews"
        if (!text.empty()) text += isSubdivision ? "--" : " ";
        text += part;
    }
    return WithFullStop(std::move(text));
}

AddedEntry SubjectEntry(const CardField& field) {
    const std::string text = SubjectText(field);
    const std::string other = field.other.empty() ? "" : SubjectText(field.other.front());
    return {kEntrySubject, InCase(text, LetterCase::Upper), text, other};
}

// A variant title has an entry if its first indicator says so.
bool HasEntry(const CardField& field) {
    return field.tag != "246" || field.first == '1' || field.first == '3';
}

void AddTitleProper(const CardRecord& record, std::vector<AddedEntry>& entries) {
    const CardField* title = record.Find("245");
    const bool isMainEntry = MainHeading(record).empty();
    if (title == nullptr || title->first != '1' || isMainEntry) return;
    const std::string heading = ProperTitle(*title, record.HasPunctuation());
    if (heading.empty()) return;
    const std::string other =
        title->other.empty() ? "" : ProperTitle(title->other.front(), record.HasPunctuation());
    entries.push_back({kEntryTitle, heading, "Title.", other});
}

void AddOf(const CardRecord& record, AddedEntryKind kind, std::vector<AddedEntry>& entries) {
    for (const CardField& field : record.Fields()) {
        const bool isName = kind == kEntryName && IsIn(kNameTags, field.tag);
        const bool isTitle = kind == kEntryTitle && IsIn(kTitleTags, field.tag) && HasEntry(field);
        const bool isSeries = kind == kEntrySeries && IsIn(kSeriesTags, field.tag);
        if (!isName && !isTitle && !isSeries) continue;
        const std::string heading = HeadingOf(field);
        if (heading.empty()) continue;
        const char* lead = isSeries ? "Series: " : isTitle ? "Title: " : "";
        entries.push_back({kind, heading, lead + heading, OtherHeading(field)});
    }
}

std::string Roman(std::size_t number) {
    constexpr std::array<std::pair<std::size_t, const char*>, 9> kSigns{{{100, "C"},
                                                                         {90, "XC"},
                                                                         {50, "L"},
                                                                         {40, "XL"},
                                                                         {10, "X"},
                                                                         {9, "IX"},
                                                                         {5, "V"},
                                                                         {4, "IV"},
                                                                         {1, "I"}}};
    std::string text;
    for (const auto& [value, sign] : kSigns) {
        for (; number >= value; number -= value) text += sign;
    }
    return text;
}

}  // namespace

std::vector<std::string> MainHeading(const CardRecord& record) {
    for (const std::string_view tag : kMainTags) {
        const CardField* field = record.Find(tag);
        const std::string heading = field == nullptr ? "" : HeadingOf(*field);
        if (heading.empty()) continue;
        const std::string other = OtherHeading(*field);
        return other.empty() ? std::vector{heading} : std::vector{heading, other};
    }
    return {};
}

std::string ProperTitle(const CardField& title, bool hasPunctuation) {
    return WithoutLastMark(Joined(title, "0123456789bcfghks", hasPunctuation));
}

std::vector<AddedEntry> AddedEntries(const CardRecord& record, SubjectChoice subjects) {
    std::vector<AddedEntry> entries;
    for (const CardField& field : record.Fields()) {
        if (!IsSubject(field.tag) || !IsOfThesaurus(field, subjects)) continue;
        AddedEntry entry = SubjectEntry(field);
        if (!entry.tracing.empty()) entries.push_back(std::move(entry));
    }
    AddOf(record, kEntryName, entries);
    AddTitleProper(record, entries);
    AddOf(record, kEntryTitle, entries);
    AddOf(record, kEntrySeries, entries);
    return entries;
}

std::string Tracings(const std::vector<AddedEntry>& entries) {
    std::string text;
    std::size_t subjects = 0;
    std::size_t others = 0;
    for (const AddedEntry& entry : entries) {
        const bool isSubject = entry.kind == kEntrySubject;
        text += text.empty() ? "" : " ";
        text += isSubject ? std::to_string(++subjects) : Roman(++others);
        text.append(". ").append(entry.tracing);
    }
    return text;
}

}  // namespace quillory

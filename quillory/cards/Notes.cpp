#include <quillory/cards/Notes.h>
#include <quillory/cards/Punctuation.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace quillory {
namespace {

constexpr std::string_view kNotOfNote = "01245678";

struct Lead {
    std::string_view tag;
    char indicator;  // the second of 246, the first of all others
    std::string_view words;
};
constexpr Lead kLeads[] = {
    {"246", '2', "Distinctive title: "},
    {"246", '3', "Other title: "},
    {"246", '4', "Cover title: "},
    {"246", '5', "Added title page title: "},
    {"246", '6', "Caption title: "},
    {"246", '7', "Running title: "},
    {"246", '8', "Spine title: "},
    {"505", '0', "Contents: "},
    {"505", '1', "Incomplete contents: "},
    {"505", '2', "Partial contents: "},
    {"510", '0', "Indexed by: "},
    {"510", '1', "Indexed in its entirety by: "},
    {"510", '2', "Indexed selectively by: "},
    {"510", '3', "References: "},
    {"510", '4', "References: "},
    {"511", '1', "Cast: "},
    {"516", ' ', "Type of file: "},
    {"520", ' ', "Summary: "},
    {"520", '0', "Subject: "},
    {"520", '1', "Review: "},
    {"520", '2', "Scope and content: "},
    {"520", '3', "Abstract: "},
    {"520", '4', "Content advice: "},
    {"521", ' ', "Audience: "},
    {"521", '0', "Reading grade level: "},
    {"521", '1', "Interest age level: "},
    {"521", '2', "Interest grade level: "},
    {"521", '3', "Special audience characteristics: "},
    {"521", '4', "Motivation/interest level: "},
    {"522", ' ', "Geographic coverage: "},
    {"524", ' ', "Cite as: "},
    {"555", ' ', "Indexes: "},
    {"555", '0', "Finding aids: "},
    {"556", ' ', "Documentation: "},
    {"567", ' ', "Methodology: "},
    {"581", ' ', "Publications: "},
    {"586", ' ', "Awards: "},
    {"588", '0', "Source of description: "},
    {"588", '1', "Latest issue consulted: "},
};

// Where the first indicator is 0, these are for the staff alone.
constexpr std::array<std::string_view, 4> kPrivateTags{"541", "542", "561", "583"};

bool IsNote(const CardField& field) {
    if (field.tag == "246") return field.first == '0' || field.first == '1';
    const bool isPrivate = std::ranges::find(kPrivateTags, field.tag) != kPrivateTags.end();
    return field.tag.starts_with('5') && !(isPrivate && field.first == '0');
}

// $i of a title says in words what an indicator says elsewhere.
std::string LeadOf(const CardField& field) {
    const bool isTitle = field.tag == "246";
    if (isTitle && !field.Text('i').empty()) return std::string(field.Text('i')) + " ";
    const char indicator = isTitle ? field.second : field.first;
    const auto* const row = std::ranges::find_if(kLeads, [&](const Lead& lead) {
        return lead.tag == field.tag && lead.indicator == indicator;
    });
    return row == std::end(kLeads) ? "" : std::string(row->words);
}

std::string NoteText(const CardField& field) {
    std::string text =
        Joined(field, std::string(kNotOfNote) + (field.tag == "246" ? "39i" : "39"), true);
    if (text.empty()) return {};
    const std::string_view part = field.Text('3');
    const char* colon = part.empty() ? "" : part.ends_with(':') ? " " : ": ";
    return LeadOf(field).append(part).append(colon).append(text);
}

}  // namespace

std::vector<std::string> Notes(const CardRecord& record,
                               const std::function<bool(const std::string& tag)>& takes) {
    std::vector<std::string> notes;
    for (const CardField& field : record.Fields()) {
        if (!IsNote(field) || !takes(field.tag)) continue;
        const std::string text = NoteText(field);
        if (!text.empty()) notes.push_back(WithFullStop(text));
        for (const CardField& other : field.other) {
            notes.push_back(WithoutLastMark(Joined(other, std::string(kNotOfNote) + "39i", true)));
        }
    }
    return notes;
}

}  // namespace quillory

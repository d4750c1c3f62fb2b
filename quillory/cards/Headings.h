#pragma once

#include <quillory/cards/CardRecord.h>

#include <cstdint>
#include <string>
#include <vector>

namespace quillory {

enum AddedEntryKind : std::int32_t { kEntryTitle, kEntryName, kEntrySeries, kEntrySubject };

// Which subject headings come on cards, by the thesaurus that their second indicator tells.
enum SubjectChoice : std::int32_t {
    kSubjectsAll,
    kSubjectsLc,           // Library of Congress Subject Headings
    kSubjectsLcChildrens,  // those for children's literature
    kSubjectsSears,        // Sears List of Subject Headings, $2 sears
};

// A heading under which a record is found besides its main entry.
struct AddedEntry {
    AddedEntryKind kind = kEntryTitle;
    std::string heading;  // as it stands above the main heading
    std::string tracing;  // as it stands at the foot of the main entry
    std::string other;    // the heading in another script; empty for none
};

// The heading of the main entry, from field 100, 110, 111 or 130, with the same in another script;
// empty if the main entry is under the title.
std::vector<std::string> MainHeading(const CardRecord& record);

// The title proper, for headings: field 245 without what follows it.
std::string ProperTitle(const CardField& title, bool hasPunctuation);

// In the order of tracings: subjects, names, titles, series.
std::vector<AddedEntry> AddedEntries(const CardRecord& record, SubjectChoice subjects);

// "1. Whaling--Fiction. I. Title.", from the entries in their order.
std::string Tracings(const std::vector<AddedEntry>& entries);

}  // namespace quillory

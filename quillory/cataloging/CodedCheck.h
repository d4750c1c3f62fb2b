#pragma once

#include <quillory/cataloging/Entry.h>
#include <quillory/coded/CodeLists.h>
#include <quillory/exchange/Record.h>

#include <span>
#include <string>

namespace quillory {

// The entries that CheckCodedEntries looks at, as one text; empty if there are none. Equal texts
// give equal results for records of one workform.
std::string CodedEntriesText(std::span<const Entry> entries);

// Checks what was said of coded fields (leader, 006, 007, 008) against the codes that they may
// have: the positions that were given, or all of a field that was given whole. Throws EntryError
// for the first value that is not a code, and for a field of another length.
void CheckCodedEntries(const Record& record, std::span<const Entry> entries,
                       const CodeLists& lists);

}  // namespace quillory

#pragma once

#include <quillory/cataloging/Entry.h>
#include <quillory/coded/CodeLists.h>
#include <quillory/exchange/Record.h>

#include <span>
#include <string>

namespace quillory {

// All that CheckCodedEntries looks at, to tell whether it has been looked at before; empty if there
// is nothing.
std::string CodedEntriesText(std::span<const Entry> entries);

// Holds what was said of the control fields against the codes that they may have: the positions
// that were given, and the whole of a 006, 007 or 008 that was. Throws EntryError for a value that
// is none, and for a field of another length.
void CheckCodedEntries(const Record& record, std::span<const Entry> entries,
                       const CodeLists& lists);

}  // namespace quillory

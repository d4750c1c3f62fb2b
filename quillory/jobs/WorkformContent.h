#pragma once

#include <quillory/edits/EditSession.h>
#include <quillory/jobs/WorkformHelps.h>
#include <quillory/places/Place.h>
#include <zorby/workforms/Template.h>

#include <string>
#include <vector>

namespace quillory {

// A workform as a person edits it, in UTF-8.
struct WorkformContent {
    std::string name;
    EditSession::State record;  // the coded fields, and the subfields with their texts or without
    SubfieldHelps helps;        // that are other than those of the workform that it began as

    friend bool operator==(const WorkformContent&, const WorkformContent&) = default;
};

// Throws EntryError for a workform with control fields that a record can't have. The result has no
// helps: HelpOf says them.
WorkformContent ContentOf(zorby::TemplateHolder workform);

struct SavedWorkform {
    int id = 0;
    std::vector<Place> leftOut;  // fields that a workform has no room for
};

// Saves a workform of the user's. `from` is the ID of the one that it began as, which gives all
// that is not said here; `replaced` is that of the one in whose place it comes, 0 for none. If the
// record has become one of another material, the standard one of that gives the rest. Throws
// FileError, and UsageError for a name that is missing or taken and for what a workform can't hold.
SavedWorkform SaveWorkform(const WorkformContent& content, int from, int replaced);
// Throws FileError, and UsageError if another program has locked it.
void DeleteWorkform(int id);

}  // namespace quillory

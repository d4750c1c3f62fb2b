#pragma once

#include <quillory/jobs/Reporter.h>
#include <quillory/store/Workforms.h>
#include <zorby/workforms/Template.h>

#include <optional>
#include <string>
#include <vector>

namespace quillory {

struct WorkformEntry {
    int id = 0;
    std::string name;  // in the library's one-byte code
    std::string text;  // the name in UTF-8

    bool IsUsers() const { return id >= kFirstUserWorkformId; }
};

// The workforms that a job can use, the standard ones and the user's own. LoadWorkforms comes
// first.
class WorkformCatalog {
public:
    // For jobs that only read. A store that isn't there is not made, and one that can't be used is
    // reported and left out. Throws FileError for a damaged store.
    explicit WorkformCatalog(const Reporter& reporter);
    // With a store that the job has opened, and keeps.
    explicit WorkformCatalog(const Database& database);

    // In the order of the data file, and of their IDs.
    std::vector<WorkformEntry> Standard() const;
    std::vector<WorkformEntry> Users() const;

    // By its name; if there is none of that name, by its ID, or by its name without regard to case
    // and diacritics. UsageError says which names come near, or that there are several.
    WorkformEntry Find(const std::string& nameOrId) const;
    // Throws FileError for a damaged block, and UsageError for an ID that no workform has.
    zorby::TemplateHolder Get(int id) const;

    // Null without a store.
    WorkformStore* Store() { return store_ ? &*store_ : nullptr; }

private:
    std::optional<Database> database_;
    std::optional<WorkformStore> store_;
    std::optional<Workforms> workforms_;
};

// Text for a workform, in the library's one-byte code. UsageError if that lacks a character.
std::string WorkformText(const std::string& utf8);

// Whether a standard workform has this name, which is in the library's one-byte code.
bool IsStandardName(const std::string& name);

}  // namespace quillory

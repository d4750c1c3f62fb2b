#pragma once

#include <quillory/cataloging/Description.h>
#include <quillory/cataloging/Draft.h>
#include <quillory/coded/CodeLists.h>

#include <ctime>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>

namespace quillory {

// How a library makes its records.
struct RecordHabits {
    bool putsMarks = true;         // as in Draft
    std::string libraryCode = {};  // for field 040; empty: what the workform has
};

// Makes complete records from descriptions. What a workform gives is worked out once for each.
class RecordMaker {
public:
    // Gives the workform of a name, in UTF-8; throws EntryError if there is none.
    using WorkformFinder = std::function<zorby::TemplateHolder(const std::string& name)>;
    using ListsLoader = std::function<CodeLists()>;

    // The lists are loaded when a control field is first to be checked against them.
    RecordMaker(WorkformFinder find, ListsLoader load, const std::tm& day, RecordHabits habits = {})
        : find_(std::move(find)), load_(std::move(load)), day_(day), habits_(std::move(habits)) {}

    const Pattern& PatternFor(const std::string& name);

    // A draft that has taken all entries. Throws EntryError.
    Draft Begin(const Description& description);
    // Throws EntryError for a value of the control fields that is not a code. The record as in
    // Draft.
    Record Finish(Draft& draft, const Description& description);

private:
    const CodeLists& Lists();

    WorkformFinder find_;
    ListsLoader load_;
    std::tm day_;
    RecordHabits habits_;
    std::map<std::string, std::unique_ptr<Pattern>> patterns_;
    std::optional<CodeLists> lists_;
    std::set<std::string> sound_;  // checked entries of control fields, with their workform
};

}  // namespace quillory

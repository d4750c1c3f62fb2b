#include <quillory/cataloging/CodedCheck.h>
#include <quillory/cataloging/RecordMaker.h>

namespace quillory {

const Pattern& RecordMaker::PatternFor(const std::string& name) {
    std::unique_ptr<Pattern>& pattern = patterns_[name];
    if (!pattern) {
        pattern = std::make_unique<Pattern>(find_(name));
        pattern->SetLibraryCode(habits_.libraryCode);
    }
    return *pattern;
}

Draft RecordMaker::Begin(const Description& description) {
    Draft draft(PatternFor(description.workform), day_, habits_.putsMarks);
    for (const Entry& entry : description.entries) {
        try {
            draft.Take(entry);
        } catch (const EntryError& error) {
            throw EntryError(error.What(), entry.where);
        }
    }
    return draft;
}

Record RecordMaker::Finish(Draft& draft, const Description& description) {
    Record record = draft.Finish();
    std::string coded = CodedEntriesText(description.entries);
    if (coded.empty()) return record;
    coded += description.workform;
    if (!sound_.contains(coded)) {
        CheckCodedEntries(record, description.entries, Lists());
        sound_.insert(std::move(coded));
    }
    return record;
}

const CodeLists& RecordMaker::Lists() {
    if (!lists_) lists_.emplace(load_());
    return *lists_;
}

}  // namespace quillory

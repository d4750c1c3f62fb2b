#pragma once

#include <quillory/jobs/Reporter.h>
#include <quillory/rules/Inspector.h>

#include <vector>

namespace quillory {

// Says what is wrong with records that were made, as far as the person who makes them can tell at
// once: no title, no date, a wrong standard number, a subfield that the field lacks ...
class NewRecordRemarks {
public:
    // Settings and dictionaries are in force. Keeps the reference.
    explicit NewRecordRemarks(Reporter& reporter);

    void Say(const Item& item);

private:
    Reporter& reporter_;
    CodeLists lists_;
    Inspector inspector_;
    std::vector<Remark> remarks_;
};

}  // namespace quillory

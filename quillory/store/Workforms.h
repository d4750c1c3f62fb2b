#pragma once

#include <quillory/store/WorkformStore.h>

namespace quillory {

// Answers the library's callbacks for the user's workforms (see zorby::CTemplate) as long as the
// object lives, and gives the store the names of the standard ones. Those that were in force before
// are put back. CTemplateList is loaded before and stays until after. Without any object the
// library reaches a workform only by its name.
//
// A failure of the store passes through the library as a FileError, out of the operation that
// needed the store.
class Workforms {
public:
    // Without a store there are only the standard workforms.
    explicit Workforms(WorkformStore* store);
    ~Workforms();
    Workforms(const Workforms&) = delete;
    Workforms& operator=(const Workforms&) = delete;

private:
    static void PutInForce(const Workforms* workforms);

    WorkformStore* store_;
    const Workforms* before_;
};

}  // namespace quillory

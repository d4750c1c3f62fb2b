#pragma once

#include <quillory/store/WorkformStore.h>

namespace quillory {

// Puts the user's workforms behind the library's callbacks (see zorby::CTemplate), and tells the
// store the names of the standard ones. CTemplateList is loaded before and stays until after. There
// is one object at a time; without one the library reaches no workform but by its name.
//
// What fails in the store is thrown as FileError, right through the library, out of the operation
// that needed the store.
class Workforms {
public:
    // Without a store there are only the standard workforms.
    explicit Workforms(WorkformStore* store);
    ~Workforms();
    Workforms(const Workforms&) = delete;
    Workforms& operator=(const Workforms&) = delete;
};

}  // namespace quillory

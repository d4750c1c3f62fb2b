#pragma once

#include <zorby/text/StringAndUINTArraySorted.h>

#include <string>
#include <vector>

namespace zorby {

using CUIntArray = std::vector<unsigned>;

// The host's database of workforms, as the library reaches it. An int result is nonzero for success
// unless said otherwise; a callback that is not set counts as one that fails. Workforms of the user
// have IDs from 100. A callback may throw: the exception passes through the library to the caller
// of its operation, which has changed nothing of its own then.
struct TemplateCallbacks {
    // Finds a workform by its name; writes its ID, and its state to the pointers that are not null.
    int (*infoByName)(const char* name, int* id, int* inUse, int* locked, int* state);
    // Finds a workform by its ID; writes its name.
    int (*infoByID)(const int& id, std::string* name, int* inUse, int* locked, int* state);
    // Adds or changes an entry; gives its ID, or 0 or below for failure. See CTemplate for the
    // calls.
    int (*update)(int id, const char* name, int first, int second, int third, int fourth,
                  int fifth);
    void (*remove)(int id);
    // Gives a copy of the stored block, from std::malloc, which the library frees.
    int (*fetchBlock)(int id, void** block, int& size);
    // Stores a copy of the block.
    void (*storeBlock)(int id, void* block, int size);
    // Names and IDs of the user's workforms. The library passes 1.
    int (*userTemplates)(CStringAndUINTArraySorted& list, int all);
    // IDs of all workforms. The library passes 0.
    int (*templateIDs)(CUIntArray& ids, int all);
    // The name that the host has put in the place of a standard workform; left empty if unknown.
    int (*standardName)(int id, std::string& name);
    // Nonzero if another ID can be had.
    int (*canAllocateID)();
};

}  // namespace zorby

#pragma once

#include <zorby/text/StringAndUINTArraySorted.h>

#include <string>
#include <vector>

namespace zorby {

using CUIntArray = std::vector<unsigned>;

// The host's database of workforms, as the library reaches it. An int result is nonzero for success
// unless said otherwise. A callback that is not set counts as one that fails. The user's workforms
// have IDs from 100 on. A callback may throw: the exception passes through the library to whoever
// called it, and the library has then changed nothing of its own.
struct TemplateCallbacks {
    // Finds a workform by its name. Writes its ID and its state to the pointers that are not null.
    int (*infoByName)(const char* name, int* id, int* inUse, int* locked, int* state);
    // Finds a workform by its ID and writes its name.
    int (*infoByID)(const int& id, std::string* name, int* inUse, int* locked, int* state);
    // Adds or changes an entry. Returns its ID, or 0 or less for failure. CTemplate lists the
    // calls.
    int (*update)(int id, const char* name, int first, int second, int third, int fourth,
                  int fifth);
    void (*remove)(int id);
    // Gives a copy of the stored block, allocated with std::malloc, which the library frees.
    int (*fetchBlock)(int id, void** block, int& size);
    // Stores a copy of the block.
    void (*storeBlock)(int id, void* block, int size);
    // Gives the names and IDs of the user's workforms. The library passes 1.
    int (*userTemplates)(CStringAndUINTArraySorted& list, int all);
    // Gives the IDs of all workforms. The library passes 0.
    int (*templateIDs)(CUIntArray& ids, int all);
    // Gives the name that the host has put in the place of a standard workform. The name stays
    // empty if the host knows none.
    int (*standardName)(int id, std::string& name);
    // Nonzero if another ID is available.
    int (*canAllocateID)();
};

}  // namespace zorby

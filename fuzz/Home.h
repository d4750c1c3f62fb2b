#pragma once

#include <quillory/jobs/Library.h>

#include <cstdlib>
#include <fuzz/Carry.h>

namespace quillory::fuzz {

// Settings, dictionaries and workforms as a new user has them.
inline void PutAllInForce() {
    static const Folder home;
    setenv("QUILLORY_HOME", home.File("home").c_str(), 1);
    LoadSettings();
    LoadDictionaries();
    LoadWorkforms();
}

// Calls `take` with each record of the bytes, in whatever form they are.
template <class Take>
void ForEachRecord(const unsigned char* data, std::size_t size, Take take) {
    Input input(FileOf(data, size));
    const Form* form = FormOfContent(input);
    const auto reader = (form == nullptr ? Forms().front() : *form).makeReader(input, true);
    Item item;
    while (reader->Next(item)) {
        if (item.kind == kItemRecord) take(item);
    }
}

}  // namespace quillory::fuzz

#pragma once

#include <zorby/archive/Object.h>

#include <map>
#include <string>
#include <vector>

#include <tools/zorby-data/Faults.h>
#include <tools/zorby-data/SourceReader.h>

namespace datatool {

// A dictionary of one kind of data file: built from the rows of its sources, or loaded and told as
// a source again.
class Compiler {
public:
    virtual ~Compiler() = default;
    virtual std::vector<SectionTaker> Takers() = 0;
    virtual void BeginFile() {}
    // Adds faults between rows, once all sources are read.
    virtual void CheckReferences() {}
    virtual zorby::CObject& Dictionary() = 0;
    // The dictionary as the text of one source. Throws NoSource.
    virtual std::string Dump() const = 0;
};

// Keys that may stand in one row only.
template <class Key>
class Keys {
public:
    void Add(const Key& key, const Place& place, Faults& faults) {
        const auto [first, isNew] = places_.try_emplace(key, place);
        if (!isNew) faults.Add(place, "the same as in " + faults.LineOf(first->second));
    }
    bool Contains(const Key& key) const { return places_.contains(key); }

private:
    std::map<Key, Place> places_;
};

// The texts of the sources, in the order of the numbers by which the faults know them.
void Compile(Compiler& compiler, const std::vector<std::string>& sources, Faults& faults);

// The bytes of the data file.
std::string Stored(zorby::CObject& dictionary);

}  // namespace datatool

#pragma once

#include <zorby/archive/Object.h>

#include <map>
#include <string>
#include <vector>

#include <tools/zorby-data/Dump.h>
#include <tools/zorby-data/Faults.h>
#include <tools/zorby-data/SourceReader.h>

namespace datatool {

// A dictionary of one kind of data file: built from its sources, or loaded and written as sources
// again.
class Compiler {
public:
    // What is wrong with the sources is added to `faults`, which has to stay.
    explicit Compiler(Faults& faults) : faults_(faults) {}
    virtual ~Compiler() = default;
    // The texts of the sources, in the order of the numbers by which the faults know them.
    virtual void Compile(const std::vector<std::string>& sources) = 0;
    virtual zorby::CObject& Dictionary() = 0;
    // Throws NoSource.
    virtual std::vector<Source> Sources() const = 0;

protected:
    Faults& faults_;
};

// One whose sources are tables of sections and rows; all of it goes into one source.
class TableCompiler : public Compiler {
public:
    using Compiler::Compiler;

    void Compile(const std::vector<std::string>& sources) override;
    std::vector<Source> Sources() const override { return {{"", Dump()}}; }

private:
    virtual std::vector<SectionTaker> Takers() = 0;
    virtual void BeginFile() {}
    // Adds faults between rows, once all sources are read.
    virtual void CheckReferences() {}
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

// The bytes of the data file.
std::string Stored(zorby::CObject& dictionary);

}  // namespace datatool

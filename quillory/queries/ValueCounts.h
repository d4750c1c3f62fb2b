#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/queries/FieldCounts.h>
#include <quillory/queries/Values.h>

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace quillory {

// Counts the values of places. Positions that are an element of the coded fields are counted code
// by code, each as what it is for the record's material.
class ValueCounts {
public:
    // Keeps the reference to the lists, which may be null: values of elements are then not taken
    // apart and have no names.
    ValueCounts(PlaceSet places, Charset charset, const CodeLists* lists);

    void Add(const Record& record);
    // What was counted of other records at the same places.
    void Add(const ValueCounts& others);

    struct Row {
        std::string value;  // UTF-8
        std::string name;   // of a code; empty for one that no list has, and for other values
        Tally tally;
    };
    // The most frequent first, and in the order of values where that is the same.
    std::vector<Row> Rows() const;

    const PlaceSet& Places() const { return places_; }
    // Records that have no value at all.
    std::uint64_t RecordsWithout() const { return records_ - recordsWith_; }

private:
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };
    using Tallies = std::unordered_map<std::string, Tally, Hash, std::equal_to<>>;

    // Elements that stand at positions of a field.
    struct ElementAt {
        Place place;
        const Element* element;
    };

    void FindElements();
    const Element* ElementOf(const ValueSlice& slice, std::string_view leader) const;
    void AddValue(const Element* element, std::string_view value);

    PlaceSet places_;
    ValueReader reader_;
    const CodeLists* lists_;
    std::vector<ElementAt> elements_;
    std::map<const Element*, Tallies> tallies_;  // those of no element under null
    std::uint64_t records_ = 0;
    std::uint64_t recordsWith_ = 0;
};

}  // namespace quillory

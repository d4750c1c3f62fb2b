#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace datatool {

// A cell of a source: the number of its file from 0, its line from 1, and the column of its first
// byte, in bytes from 1.
struct Place {
    std::size_t file = 0;
    std::size_t line = 0;
    std::size_t column = 0;

    bool operator<(const Place& other) const {
        return std::tie(file, line, column) < std::tie(other.file, other.line, other.column);
    }
};

// What is wrong with some sources.
class Faults {
public:
    // The names of the sources, in the order of their numbers.
    explicit Faults(std::vector<std::string> files) : files_(std::move(files)) {}

    // Only the first fault of a place is kept.
    void Add(const Place& place, std::string reason);
    bool Empty() const { return reasons_.empty(); }

    // A line "FILE:LINE:COLUMN: REASON" for each fault, in the order of the sources; after the
    // twentieth only how many more there are.
    std::string Text() const;
    // "FILE:LINE"
    std::string LineOf(const Place& place) const;

private:
    std::vector<std::string> files_;
    std::map<Place, std::string> reasons_;
};

}  // namespace datatool

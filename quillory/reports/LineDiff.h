#pragma once

#include <string>
#include <vector>

namespace quillory {

// A line that one text has and the other lacks.
struct LineOfDiff {
    bool isNew = false;
    std::string text;

    friend bool operator==(const LineOfDiff&, const LineOfDiff&) = default;
};

// The lines that differ, as few as there can be, in their order: what is gone before what is new.
// Very long texts may come with more lines than need be.
std::vector<LineOfDiff> DiffOf(const std::vector<std::string>& before,
                               const std::vector<std::string>& after);

}  // namespace quillory

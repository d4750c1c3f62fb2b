#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// A part of a bar. Its colour is that of a class of the page: "error", "warning", "note", "ok".
struct BarPart {
    std::string_view colour;
    std::string_view name;
    std::uint64_t count;
};

struct Bar {
    std::string label;
    std::vector<BarPart> parts;

    std::uint64_t Total() const;
};

// Bars below each other as inline SVG, or words for none.
std::string BarChart(const std::string& name, const std::vector<Bar>& bars);

}  // namespace quillory

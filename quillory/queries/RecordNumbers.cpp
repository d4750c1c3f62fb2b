#include <quillory/faults/FaultCode.h>
#include <quillory/queries/RecordNumbers.h>
#include <quillory/text/Ascii.h>

#include <algorithm>
#include <charconv>
#include <optional>

namespace quillory {
namespace {

using Range = std::pair<std::uint64_t, std::uint64_t>;

std::optional<std::uint64_t> ParseNumber(std::string_view text) {
    std::uint64_t number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = read.ec == std::errc() && read.ptr == text.data() + text.size();
    return isWhole && number != 0 ? std::optional(number) : std::nullopt;
}

std::optional<Range> ParseRange(std::string_view text) {
    const std::size_t dash = text.find('-');
    const auto first = ParseNumber(WithoutBlanks(text.substr(0, dash)));
    const auto last = dash == text.npos ? first : ParseNumber(WithoutBlanks(text.substr(dash + 1)));
    if (!first || !last || *last < *first) return std::nullopt;
    return Range{*first, *last};
}

// Ranges that overlap become one.
std::vector<Range> Merged(std::vector<Range> ranges) {
    std::ranges::sort(ranges);
    std::vector<Range> merged;
    for (const Range& range : ranges) {
        if (merged.empty() || merged.back().second < range.first) {
            merged.push_back(range);
        } else {
            merged.back().second = std::max(merged.back().second, range.second);
        }
    }
    return merged;
}

}  // namespace

bool RecordNumbers::Has(std::uint64_t number) const {
    const auto after = std::ranges::upper_bound(ranges_, number, {}, &Range::first);
    return after != ranges_.begin() && number <= std::prev(after)->second;
}

RecordNumbersReading ParseRecordNumbers(std::string_view text) {
    std::vector<Range> ranges;
    std::size_t at = 0;
    while (at <= text.size()) {
        const std::string_view part = text.substr(at, text.find(',', at) - at);
        const auto range = ParseRange(WithoutBlanks(part));
        if (!range) {
            TextFault fault{{FaultCode::kNoRecordNumbers}, at, part.size()};
            fault.found = text;
            return {{}, fault};
        }
        ranges.push_back(*range);
        at += part.size() + 1;
    }
    RecordNumbersReading reading;
    reading.numbers.ranges_ = Merged(std::move(ranges));
    return reading;
}

}  // namespace quillory

#include <algorithm>
#include <charconv>

#include <tools/zorby-data/CellText.h>
#include <tools/zorby-data/Row.h>

namespace datatool {
namespace {

std::string Quoted(std::string_view cell) {
    return '"' + std::string(cell) + '"';
}

}  // namespace

std::vector<Cell> CellsOf(std::string_view line) {
    std::vector<Cell> cells;
    for (std::size_t begin = 0; begin <= line.size();) {
        const std::size_t end = std::min(line.find('\t', begin), line.size());
        cells.push_back({line.substr(begin, end - begin), begin + 1});
        begin = end + 1;
    }
    return cells;
}

Row::Row(const Section& section, std::string_view line, const Place& start, Faults& faults)
    : columns_(CellsOf(section.header)),
      cells_(CellsOf(line)),
      start_(start),
      complete_(cells_.size() == columns_.size()),
      faults_(faults) {
    if (complete_) return;
    const bool tooMany = cells_.size() > columns_.size();
    start_.column = tooMany ? cells_[columns_.size()].column : line.size() + 1;
    faults_.Add(start_, "the row has " + std::to_string(cells_.size()) + " cells, not " +
                            std::to_string(columns_.size()));
    cells_.resize(columns_.size());
}

const Cell& Row::At(std::string_view column) const {
    const auto found = std::ranges::find(columns_, column, &Cell::bytes);
    return cells_.at(static_cast<std::size_t>(found - columns_.begin()));
}

Place Row::PlaceOf(std::string_view column) const {
    Place place = start_;
    if (complete_) place.column = At(column).column;
    return place;
}

void Row::Fault(std::string_view column, std::string reason) {
    faults_.Add(PlaceOf(column), std::string(column) + ": " + std::move(reason));
}

std::string Row::Text(std::string_view column) {
    CellText decoded = DecodeCell(At(column).bytes);
    if (!decoded.fault.empty()) Fault(column, std::move(decoded.fault));
    return std::move(decoded.text);
}

char Row::Code(std::string_view column) {
    const std::string text = Text(column);
    if (text.size() != 1) Fault(column, Quoted(At(column).bytes) + " isn't one character");
    return text.empty() ? '\0' : text.front();
}

char Row::CodeOrNone(std::string_view column) {
    return At(column).bytes.empty() ? '\0' : Code(column);
}

template <class Number>
Number Row::NumberAt(std::string_view column) {
    const std::string_view digits = At(column).bytes;
    Number number = 0;
    const auto [stop, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error == std::errc::result_out_of_range) {
        Fault(column, Quoted(digits) + " is too large");
    } else if (error != std::errc() || stop != digits.data() + digits.size()) {
        Fault(column, Quoted(digits) + " isn't a number");
    }
    return number;
}

std::int32_t Row::Signed(std::string_view column) {
    return NumberAt<std::int32_t>(column);
}

std::uint32_t Row::Unsigned(std::string_view column) {
    return NumberAt<std::uint32_t>(column);
}

unsigned Row::Tag(std::string_view column) {
    const unsigned tag = Unsigned(column);
    const std::string_view digits = At(column).bytes;
    if (tag == 0 || digits.size() != kTagDigits) {
        Fault(column, Quoted(digits) + " isn't a tag from 001 to 999");
    }
    return tag;
}

std::int32_t Row::Flag(std::string_view column) {
    const std::int32_t flag = Signed(column);
    if (flag != 0 && flag != 1) Fault(column, Quoted(At(column).bytes) + " isn't 0 or 1");
    return flag;
}

int Row::Which(std::string_view column) {
    const std::int32_t which = Signed(column);
    if (which != 1 && which != 2) Fault(column, Quoted(At(column).bytes) + " isn't 1 or 2");
    return which;
}

}  // namespace datatool

#include <quillory/exchange/Input.h>

#include <algorithm>

#include <tools/zorby-data/CodeSource.h>
#include <tools/zorby-data/Row.h>

namespace datatool {
namespace {

constexpr std::size_t kStatusColumn = 5;
constexpr std::size_t kMenuColumn = 10;  // the first of those that tell of menus
constexpr std::size_t kColumns = kMenuColumn + 3;

// Takes a line, without its end, from the front.
std::string_view TakeLine(std::string_view& text) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line;
}

std::string_view PublishedCells(std::string_view row, const std::string& place) {
    const std::vector<Cell> cells = CellsOf(row);
    if (cells.size() != kColumns) {
        throw quillory::FileError(place + ": " + std::to_string(cells.size()) +
                                  " columns instead of " + std::to_string(kColumns));
    }
    const std::string_view status = cells[kStatusColumn].bytes;
    if (status == "menu" || status == "title") return {};
    const std::string_view last = cells[kMenuColumn - 1].bytes;
    return {row.begin(), last.end()};
}

}  // namespace

std::string PublishedPart(std::string_view source, const std::string& name) {
    std::string published;
    bool isFirstParagraph = true;
    for (int number = 1; !source.empty(); ++number) {
        const std::string_view line = TakeLine(source);
        if (line.empty()) {
            isFirstParagraph = false;
        } else if (line.front() != '#') {
            published += PublishedCells(line, name + ':' + std::to_string(number));
        } else if (isFirstParagraph) {
            published += line;
        }
        published += '\n';
    }
    return published;
}

std::string WithoutEmptyLines(std::string_view text) {
    std::string lines;
    while (!text.empty()) {
        const std::string_view line = TakeLine(text);
        if (!line.empty()) lines.append(line) += '\n';
    }
    return lines;
}

}  // namespace datatool

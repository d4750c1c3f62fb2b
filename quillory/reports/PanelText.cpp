#include <quillory/reports/PanelText.h>
#include <quillory/reports/ScreenText.h>
#include <quillory/text/Ascii.h>
#include <quillory/text/LetterCase.h>
#include <quillory/text/Utf8.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>
#include <utility>

namespace quillory {
namespace {

constexpr double kColumn = kPointsPerInch / 12;
constexpr double kRow = kPointsPerInch / 6;

std::size_t ColumnsIn(double points) {
    return static_cast<std::size_t>(std::max(0.0, points / kColumn + 0.01));
}

std::size_t Rounded(double number) {
    return static_cast<std::size_t>(std::max(0L, std::lround(number)));
}

// As much of a word as has room in so many columns: one character at least, with its marks.
std::size_t BytesIn(std::string_view word, std::size_t columns) {
    std::size_t bytes = 0;
    std::size_t used = 0;
    while (bytes < word.size()) {
        const Utf8Char c = DecodeUtf8(word.substr(bytes));
        const std::size_t width = Columns(word.substr(bytes, c.size));
        if (bytes > 0 && used + width > columns) break;
        used += width;
        bytes += c.size;
    }
    return bytes;
}

// Breaks a text into lines, the first of which may have another width.
class LineBreaker {
public:
    LineBreaker(std::size_t first, std::size_t others) : room_(first), others_(others) {}

    void Add(std::string_view word) {
        if (!line_.empty() && Columns(line_) + 1 + Columns(word) > room_) End();
        if (!line_.empty()) line_ += ' ';
        while (line_.empty()) {
            const std::size_t bytes = BytesIn(word, room_);
            if (bytes == word.size()) break;
            line_ = word.substr(0, bytes);
            word.remove_prefix(bytes);
            End();
        }
        line_ += word;
    }

    SetText Finish() {
        if (!line_.empty() || set_.lines.empty()) End();
        return std::move(set_);
    }

private:
    void End() {
        const double width = static_cast<double>(Columns(line_)) * kColumn;
        set_.lines.push_back({std::exchange(line_, {}), width});
        room_ = others_;
    }

    std::size_t room_;
    std::size_t others_;
    std::string line_;
    SetText set_;
};

// Hebrew and Arabic with their neighbours in Unicode.
bool IsRightToLeft(char32_t c) {
    return (c >= 0x0590 && c <= 0x08FF) || (c >= 0xFB1D && c <= 0xFDFF) ||
           (c >= 0xFE70 && c <= 0xFEFF);
}

bool StartsFromTheRight(std::string_view text) {
    while (!text.empty()) {
        const Utf8Char c = DecodeUtf8(text);
        if (c.valid && IsRightToLeft(c.codePoint)) return true;
        if (c.valid && IsOfWord(c.codePoint) && (c.size > 1 || !IsDigit(text.front()))) {
            return false;
        }
        text.remove_prefix(c.size);
    }
    return false;
}

}  // namespace

double ColumnTypesetter::LineHeight(const zorby::CFont&) {
    return kRow;
}

SetText ColumnTypesetter::Break(std::string_view utf8, const zorby::CFont&, double firstWidth,
                                double width) {
    LineBreaker breaker(std::max<std::size_t>(1, ColumnsIn(firstWidth)),
                        std::max<std::size_t>(1, ColumnsIn(width)));
    std::istringstream words{Visible(utf8)};
    for (std::string word; words >> word;) breaker.Add(word);
    SetText set = breaker.Finish();
    set.isRightToLeft = StartsFromTheRight(utf8);
    return set;
}

std::string ToText(const Panel& panel) {
    const bool isTurned = panel.isTurned;
    const std::size_t columns = ColumnsIn(isTurned ? panel.height : panel.width);
    std::size_t rows = Rounded((isTurned ? panel.width : panel.height) / kRow);
    std::map<std::size_t, std::map<std::size_t, std::string>> grid;  // by row and column
    for (const PlacedLine& line : panel.lines) {
        const std::size_t row = Rounded(line.y / kRow);
        grid[row][Rounded(line.x / kColumn)] = line.text;
        rows = std::max(rows, row + 1);
    }
    if (panel.holeCenter > 0) {
        auto& row = grid[Rounded(panel.holeCenter / kRow)];
        if (row.empty()) row[columns / 2] = "\u25CB";
    }
    std::string bar;
    for (std::size_t i = 0; i < columns; ++i) bar += "\u2500";
    std::string text = "\u250C" + bar + "\u2510\n";
    for (std::size_t row = 0; row < rows; ++row) {
        std::string line;
        for (const auto& [column, part] : grid[row]) {
            line = Padded(line, column);
            line += part;
        }
        text += "\u2502" + Padded(line, columns) + "\u2502\n";
    }
    return text + "\u2514" + bar + "\u2518\n";
}

void TextTarget::Take(const PrintItem&, const std::vector<Panel>& panels) {
    for (const Panel& panel : panels) output_.Write(ToText(panel));
}

std::string ToText(const QueuedItem& queued, const std::string& noun) {
    constexpr std::size_t kNumberColumns = 14;
    constexpr std::size_t kUseColumns = 12;
    const PrintItem& item = queued.item;
    std::string text;
    for (const BlockRole role : {kBlockAddedHeading, kBlockContinued, kBlockCallNumber}) {
        for (const std::string& one : item.Texts(role)) {
            text.append(text.empty() ? "" : " ").append(one);
        }
        if (!text.empty()) break;
    }
    return Padded(Visible(item.controlNumber), kNumberColumns) + " " +
           Padded(std::string(UseName(item.use)), kUseColumns) + Visible(text) +
           (queued.panels > 1 ? " (" + std::to_string(queued.panels) + " " + noun + "s)" : "") +
           "\n";
}

}  // namespace quillory

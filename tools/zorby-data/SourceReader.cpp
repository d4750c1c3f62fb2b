#include <algorithm>

#include <tools/zorby-data/SourceReader.h>

namespace datatool {

void SourceReader::PassOver(const Place& place, std::string reason) {
    faults_.Add(place, std::move(reason));
    expected_ = Expected::kNothing;
    tookAllSections_ = false;
}

void SourceReader::Read(std::size_t file, std::string_view text) {
    place_ = {file, 0, 1};
    expected_ = Expected::kSection;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        ++place_.line;
        if (text.substr(0, end).ends_with('\r')) {
            return PassOver(Column(end), "a line ends in CR LF, not in LF");
        }
        ReadLine(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    EndSection();
}

void SourceReader::ReadLine(std::string_view line) {
    if (line.empty() || line.front() == '#') return;
    if (line.front() == '[') return OpenSection(line);
    if (expected_ == Expected::kSection) {
        PassOver(place_, "a row before any section");
    } else if (expected_ == Expected::kHeader) {
        CheckHeader(line);
    } else if (expected_ == Expected::kRow) {
        Row row(taker_->section, line, place_, faults_);
        taker_->take(row);
    }
}

void SourceReader::OpenSection(std::string_view line) {
    EndSection();
    section_ = place_;
    const auto found = std::ranges::find_if(takers_, [&](const SectionTaker& taker) {
        return line == "[" + std::string(taker.section.name) + "]";
    });
    if (found == takers_.end()) return PassOver(place_, "unknown section " + std::string(line));
    taker_ = &*found;
    expected_ = Expected::kHeader;
    taker_->open();
}

void SourceReader::CheckHeader(std::string_view line) {
    const std::vector<Cell> wanted = CellsOf(taker_->section.header);
    const std::vector<Cell> found = CellsOf(line);
    expected_ = Expected::kRow;
    const auto [missing, other] =
        std::ranges::mismatch(wanted, found, {}, &Cell::bytes, &Cell::bytes);
    if (other != found.end()) {
        const std::string expected =
            missing != wanted.end() ? '"' + std::string(missing->bytes) + '"' : "nothing more";
        PassOver(Column(other->column),
                 "unknown column \"" + std::string(other->bytes) + "\": expected " + expected);
    } else if (missing != wanted.end()) {
        PassOver(Column(line.size() + 1),
                 "column \"" + std::string(missing->bytes) + "\" is missing");
    }
}

void SourceReader::EndSection() {
    if (expected_ != Expected::kHeader) return;
    PassOver(section_, "a section without a line of column names");
}

}  // namespace datatool

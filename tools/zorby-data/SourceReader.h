#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include <tools/zorby-data/Faults.h>
#include <tools/zorby-data/Row.h>
#include <tools/zorby-data/Sections.h>

namespace datatool {

// Who takes the rows of a section.
struct SectionTaker {
    Section section;
    std::function<void(Row&)> take;
    std::function<void()> open = [] {};
};

// Reads sources line by line: comments and empty lines, section names, headers and rows.
class SourceReader {
public:
    SourceReader(std::vector<SectionTaker> takers, Faults& faults)
        : takers_(std::move(takers)), faults_(faults) {}

    // The faults know the file by its number.
    void Read(std::size_t file, std::string_view text);
    // Whether every row went to its taker: a section with a faulty name or header is passed over.
    bool TookAllSections() const { return tookAllSections_; }

private:
    enum class Expected { kSection, kHeader, kRow, kNothing };

    void ReadLine(std::string_view line);
    void OpenSection(std::string_view line);
    void CheckHeader(std::string_view line);
    void EndSection();
    void PassOver(const Place& place, std::string reason);
    Place Column(std::size_t column) const { return {place_.file, place_.line, column}; }

    std::vector<SectionTaker> takers_;
    Faults& faults_;
    Place place_;    // of the line
    Place section_;  // of the line that opened the section
    const SectionTaker* taker_ = nullptr;
    Expected expected_ = Expected::kSection;
    bool tookAllSections_ = true;
};

}  // namespace datatool

#include <quillory/rules/FormatTable.h>

#include <algorithm>
#include <charconv>
#include <iterator>
#include <span>
#include <utility>

namespace quillory {
namespace {

using Cells = std::vector<std::string_view>;

// Why a row does not fit.
class BadRow : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

[[noreturn]] void RefuseCell(const char* what, std::string_view cell) {
    throw BadRow(std::string(what) + " \"" + std::string(cell) + '"');
}

Cells CellsOf(std::string_view line) {
    Cells cells;
    for (;;) {
        const std::size_t tab = std::min(line.find('\t'), line.size());
        cells.push_back(line.substr(0, tab));
        if (tab == line.size()) return cells;
        line.remove_prefix(tab + 1);
    }
}

bool IsObsolete(std::string_view name) {
    return name.ends_with(" (obsolete)");
}

std::size_t NumberOf(std::string_view cell) {
    std::size_t number = 0;
    const char* end = cell.data() + cell.size();
    const auto read = std::from_chars(cell.data(), end, number);
    if (cell.empty() || read.ptr != end) RefuseCell("no number", cell);
    return number;
}

bool FlagOf(std::string_view cell) {
    if (cell != "0" && cell != "1") RefuseCell("neither 0 nor 1", cell);
    return cell == "1";
}

char ByteOf(std::string_view cell) {
    if (cell.size() != 1) RefuseCell("not one character", cell);
    return cell.front();
}

void AddCode(ByteSet& codes, char code) {
    codes.Add(code == '#' ? ' ' : code);
}

// "#", "7", or "0-9".
void AddValues(ByteSet& codes, std::string_view cell) {
    const bool isRange = cell.size() == 3 && cell[1] == '-' && cell[0] < cell[2];
    if (!isRange) return AddCode(codes, ByteOf(cell));
    for (char value = cell[0]; value <= cell[2]; ++value) AddCode(codes, value);
}

constexpr std::string_view kAnyTag = "any";

}  // namespace

// Reads the rows of a table, section by section.
class FormatTable::Reader {
public:
    explicit Reader(FormatTable& table) : table_(table), rules_(kTags) {}

    void Read(std::string_view text, const std::string& name) {
        for (std::size_t number = 1; !text.empty(); ++number) {
            const std::size_t end = std::min(text.find('\n'), text.size());
            try {
                ReadLine(text.substr(0, end));
            } catch (const BadRow& fault) {
                throw FormatTableError(name + ":" + std::to_string(number) + ": " + fault.what());
            }
            text.remove_prefix(std::min(end + 1, text.size()));
        }
    }

    std::vector<FieldRule> TakeRules() {
        for (unsigned tag = kFirstDataTag; tag < kTags; ++tag) {
            rules_[tag].codes.AddAll(codesOfAll_);
            rules_[tag].repeatableCodes.AddAll(codesOfAll_);
        }
        return std::move(rules_);
    }

private:
    using ReadRow = void (Reader::*)(const Cells&);

    struct Section {
        std::string_view name;
        std::string_view columns;
        std::size_t count;
        ReadRow read;
    };

    static std::span<const Section> Sections() {
        static constexpr Section kSections[] = {
            {"[fields]", "tag\tname\trepeatable\tmandatory\tlength", 5, &Reader::ReadField},
            {"[indicators]", "tag\twhich\tvalue\tname", 4, &Reader::ReadIndicator},
            {"[subfields]", "tag\tcode\tname\trepeatable", 4, &Reader::ReadSubfield},
            {"[positions]", "field\tpositions\telement\tcodes\tobsolete", 5,
             &Reader::ReadPositions},
        };
        return kSections;
    }

    void ReadLine(std::string_view line) {
        if (line.empty() || line.front() == '#') return;
        if (line.front() == '[') return Begin(line);
        if (section_ == nullptr) RefuseCell("no section before", line);
        if (!hasColumns_) {
            if (line != section_->columns) RefuseCell("not the columns of the section:", line);
            hasColumns_ = true;
            return;
        }
        const Cells cells = CellsOf(line);
        if (cells.size() != section_->count) {
            throw BadRow(std::to_string(cells.size()) + " columns instead of " +
                         std::to_string(section_->count));
        }
        (this->*section_->read)(cells);
    }

    void Begin(std::string_view name) {
        const auto sections = Sections();
        const auto found = std::ranges::find(sections, name, &Section::name);
        if (found == sections.end()) RefuseCell("no section", name);
        section_ = &*found;
        hasColumns_ = false;
    }

    void ReadField(const Cells& cells) {
        const unsigned tag = TagNumber(cells[0]);
        if (tag == kNoTag || rules_[tag].isKnown) {
            RefuseCell("no tag, or a second row for it:", cells[0]);
        }
        FieldRule& rule = rules_[tag];
        rule.isKnown = true;
        rule.isObsolete = IsObsolete(cells[1]);
        rule.isRepeatable = FlagOf(cells[2]);
        table_.mandatory_[tag] = FlagOf(cells[3]);
        if (cells[4].empty()) return;
        if (tag >= kFirstDataTag) RefuseCell("no control field", cells[0]);
        table_.lengths_[tag] = NumberOf(cells[4]);
    }

    FieldRule& KnownField(std::string_view cell) {
        const unsigned tag = TagNumber(cell);
        if (tag == kNoTag || !rules_[tag].isKnown) RefuseCell("no field", cell);
        return rules_[tag];
    }

    void ReadIndicator(const Cells& cells) {
        const std::size_t which = NumberOf(cells[1]);
        if (which != 1 && which != 2) RefuseCell("no indicator", cells[1]);
        IndicatorRule& values = KnownField(cells[0]).indicators[which - 1];
        AddValues(IsObsolete(cells[3]) ? values.obsolete : values.current, cells[2]);
        if (NamesSource(cells[3])) AddValues(values.sourced, cells[2]);
    }

    void ReadSubfield(const Cells& cells) {
        const char code = ByteOf(cells[1]);
        const bool isRepeatable = FlagOf(cells[3]);
        if (cells[0] == kAnyTag) {
            if (!isRepeatable) RefuseCell("one of all fields, and not repeatable:", cells[1]);
            codesOfAll_.Add(code);
            return;
        }
        FieldRule& rule = KnownField(cells[0]);
        if (rule.codes.Has(code)) RefuseCell("twice:", cells[1]);
        rule.codes.Add(code);
        if (isRepeatable) rule.repeatableCodes.Add(code);
        if (IsObsolete(cells[2])) rule.obsoleteCodes.Add(code);
    }

    void ReadPositions(const Cells& cells) {
        CodedPositions positions;
        positions.tag = cells[0] == "leader" ? 0 : TagNumber(cells[0]);
        if (positions.tag >= kFirstDataTag) RefuseCell("no control field", cells[0]);
        const std::size_t dash = cells[1].find('-');
        positions.first = NumberOf(cells[1].substr(0, dash));
        positions.last =
            dash == cells[1].npos ? positions.first : NumberOf(cells[1].substr(dash + 1));
        if (positions.last < positions.first) RefuseCell("no positions", cells[1]);
        positions.element = cells[2];
        for (const char code : cells[3]) AddCode(positions.current, code);
        for (const char code : cells[4]) AddCode(positions.obsolete, code);
        table_.positions_.push_back(std::move(positions));
    }

    FormatTable& table_;
    std::vector<FieldRule> rules_;
    ByteSet codesOfAll_;
    const Section* section_ = nullptr;
    bool hasColumns_ = false;
};

FormatTable::FormatTable(std::string_view text, const std::string& name, bool allowLocal)
    : rules_([&] {
          Reader reader(*this);
          reader.Read(text, name);
          return FieldRules(reader.TakeRules(), allowLocal);
      }()) {}

}  // namespace quillory

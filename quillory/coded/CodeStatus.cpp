#include <quillory/coded/CodeStatus.h>
#include <quillory/coded/Elements.h>
#include <quillory/coded/Material.h>
#include <quillory/exchange/Input.h>
#include <quillory/text/Utf8.h>
#include <zorby/charset/PlainRun.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <stdexcept>
#include <utility>

namespace quillory {
namespace {

using zorby::CFType;

enum Column { kField, kForm, kPositions, kElement, kCode, kStatus, kSince, kUntil, kUse, kText };
constexpr std::size_t kColumns = kText + 1;
constexpr std::string_view kHeader =
    "field\tform\tpositions\telement\tcode\tstatus\tsince\tuntil\tuse\ttext";
constexpr std::string_view kAllForms = "all";

using Cells = std::array<std::string_view, kColumns>;

// Why a row does not fit.
class BadRow : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

[[noreturn]] void Refuse(const char* what, std::string_view cell) {
    throw BadRow(std::string(what) + " \"" + std::string(cell) + "\"");
}

Cells CellsOf(std::string_view line) {
    Cells cells;
    std::size_t count = 0;
    for (;; ++count) {
        const std::size_t tab = std::min(line.find('\t'), line.size());
        if (count < kColumns) cells[count] = line.substr(0, tab);
        if (tab == line.size()) break;
        line.remove_prefix(tab + 1);
    }
    if (++count != kColumns) {
        throw BadRow(std::to_string(count) + " columns instead of " + std::to_string(kColumns));
    }
    return cells;
}

CFType FormOfAll(std::string_view field) {
    if (field == "leader") return zorby::CFLdr;
    if (field == "008") return zorby::CF008Standard;
    if (field == "006") return zorby::CF006Unknown;
    if (field == "007") return zorby::CF007Unknown;
    Refuse("no coded field", field);
}

CFType FormNamed(std::string_view field, std::string_view name) {
    const CFType all = FormOfAll(field);
    if (name == kAllForms) return all;
    for (const CFType form : field == "007" ? FormsOf007() : FormsOf006()) {
        if (name == FormName(form) && (field == "006" || field == "007")) return form;
    }
    Refuse("no form of its field", name);
}

int PositionOf(std::string_view text) {
    int position = 0;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, position);
    if (text.size() != 2 || read.ptr != end) Refuse("no position", text);
    return position;
}

// Rows for positions that don't make up an element would never be found again.
void CheckPositions(CFType form, int first, int last, std::string_view cell) {
    if (form == zorby::CF006Unknown || form == zorby::CF007Unknown) {
        if (first == 0 && last == 0) return;
        Refuse("only position 00 is the same in all forms, not", cell);
    }
    for (const Element& element : ElementsOf(form)) {
        if (element.first == first && element.last == last) return;
    }
    Refuse("no element has the positions", cell);
}

std::string_view YearOf(std::string_view cell) {
    const bool isYear =
        cell.empty() || (cell.size() == 4 && cell.find_first_not_of("0123456789") == cell.npos);
    if (!isYear) Refuse("no year", cell);
    return cell;
}

std::string_view TextOf(std::string_view cell) {
    if (cell.empty()) throw BadRow("no text");
    const char* const end = cell.data() + cell.size();
    for (std::string_view rest = cell;;) {
        rest.remove_prefix(zorby::PlainRunLength(rest.data(), end));
        if (rest.empty()) break;
        const Utf8Char c = DecodeUtf8(rest);
        if (!c.valid) throw BadRow("the text is not UTF-8");
        rest.remove_prefix(c.size);
    }
    return cell;
}

Standing StandingOf(std::string_view cell) {
    if (cell == "current") return Standing::Current;
    if (cell == "obsolete") return Standing::Obsolete;
    if (cell == "local") return Standing::Local;
    Refuse("no status", cell);
}

// But for the code itself.
PublishedCode CodeOf(const Cells& cells) {
    PublishedCode code;
    if (cells[kCode].empty()) throw BadRow("no code");
    code.standing = StandingOf(cells[kStatus]);
    code.since = YearOf(cells[kSince]);
    code.until = YearOf(cells[kUntil]);
    if (code.standing != Standing::Obsolete && !(code.until.empty() && cells[kUse].empty())) {
        throw BadRow("an end or a successor of a code that is not obsolete");
    }
    code.use = cells[kUse];
    code.text = TextOf(cells[kText]);
    return code;
}

}  // namespace

const PublishedCode* PublishedElement::Find(std::string_view code) const {
    const std::size_t* place = places.Find(codes, code);
    return place == nullptr ? nullptr : &codes[*place];
}

bool PublishedElement::Add(PublishedCode code) {
    const auto [place, isNew] = places.Add(codes, code.code);
    if (!isNew) {
        const bool isTold = std::ranges::any_of(codes, [&code](const PublishedCode& other) {
            return other.code == code.code && other.standing == code.standing;
        });
        if (isTold) return false;
        if (codes[place].standing == Standing::Obsolete) place = codes.size();
    }
    codes.push_back(code);
    return true;
}

CodeStatus::CodeStatus(const std::string& path) {
    Input input(path);
    Add(ReadWhole(input), path);
    if (elements_.empty()) throw FileError(path + ": holds no codes");
}

void CodeStatus::Add(std::string source, const std::string& name) {
    std::string_view text = sources_.emplace_back(std::move(source));
    std::size_t number = 0;
    bool hasHeader = false;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        ++number;
        if (line.empty() || line.front() == '#') continue;
        try {
            if (line == kHeader) {
                hasHeader = true;
            } else if (hasHeader) {
                AddRow(line);
            } else {
                throw BadRow("the first row does not name the columns");
            }
        } catch (const BadRow& fault) {
            throw FileError(name + ":" + std::to_string(number) + ": " + fault.what());
        }
    }
}

PublishedElement& CodeStatus::ElementAt(std::string_view field, std::string_view form,
                                        std::string_view positions) {
    const CFType type = FormNamed(field, form);
    const bool isRange = positions.size() == 5 && positions[2] == '-';
    const int first = PositionOf(isRange ? positions.substr(0, 2) : positions);
    const int last = isRange ? PositionOf(positions.substr(3)) : first;
    CheckPositions(type, first, last, positions);
    PublishedElement& element = elements_[{type, first}];
    element.first = first;
    element.last = last;
    return element;
}

std::string_view CodeStatus::WithBlanks(std::string_view code) {
    if (code.find('#') == code.npos) return code;
    std::string& text = sources_.emplace_back(code);
    std::replace(text.begin(), text.end(), '#', ' ');
    return text;
}

// The rows of an element mostly follow one another.
void CodeStatus::AddRow(std::string_view line) {
    const Cells cells = CellsOf(line);
    const std::string_view place(line.data(), cells[kElement].data());
    if (place != lastPlace_) {
        lastElement_ = &ElementAt(cells[kField], cells[kForm], cells[kPositions]);
        lastPlace_ = place;
    }
    PublishedCode code = CodeOf(cells);
    code.code = WithBlanks(cells[kCode]);
    if (!lastElement_->Add(code)) Refuse("a second row for code", cells[kCode]);
    lastElement_->name = cells[kElement];
}

const PublishedElement* CodeStatus::Find(CFType form, int first) const {
    if (first == 0 && IsFormOf006(form)) form = zorby::CF006Unknown;
    if (first == 0 && IsFormOf007(form)) form = zorby::CF007Unknown;
    const auto found = elements_.find({form, first});
    return found == elements_.end() ? nullptr : &found->second;
}

}  // namespace quillory

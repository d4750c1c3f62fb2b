#pragma once

#include <quillory/exchange/JsonTree.h>
#include <quillory/exchange/Record.h>
#include <quillory/jobs/CheckReport.h>

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillory {

// A line of a check's results: a record, or damage.
struct CheckLine {
    std::string file;    // that was checked
    Item item;           // whose record has a control number alone
    std::string reason;  // of damage
    RecordWords words;
    std::string controlNumber;  // as it stands in the record
    std::vector<Remark> remarks;
    std::vector<std::string> numbers;       // "020 $a: 9780596000271"
    std::size_t numbersAt = 0;              // where remarks on all of them but 001 come
    std::map<RuleId, Severity> severities;  // of rules on numbers, where the user chose them
};

// Reads lines of JSON as a check writes them.
class CheckLineReader {
public:
    // False for what is no such line. Rules and views in `line` hold as long as the reader, and
    // until the line is read into again.
    bool Read(std::string_view text, CheckLine& line);
    // The same, but only file, number of the record and numbers are certain to be there.
    bool ReadNumbers(std::string_view text, CheckLine& line);

private:
    // Texts by which what was read before is found again.
    struct TextHash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    bool ReadInParts(std::string_view text, CheckLine& line);
    bool ReadHead(std::string_view text, CheckLine& line);
    Remark RemarkOf(const JsonNode& finding);
    const Remark& KnownRemark(std::string_view finding);
    // The rule of that name as it is in the table, or else one of these texts, whose words are what
    // was found. Null if there are too many.
    const Rule* RuleFor(const std::string& name, const std::string& title, const std::string& why);
    std::string_view Keep(const std::string& text) { return texts_.emplace_back(text); }

    std::deque<Rule> rules_;
    std::deque<std::string> texts_;
    std::size_t own_ = 0;  // rules that the table lacks
    std::map<std::string, const Rule*, std::less<>> byName_;
    std::unordered_map<std::string, Remark, TextHash, std::equal_to<>> known_;
    std::string file_;        // the last one
    std::string fileAsJson_;  // as it stood in the line
};

}  // namespace quillory

#include <quillory/exchange/JsonTree.h>
#include <quillory/jobs/CheckLine.h>
#include <quillory/rules/RuleChoice.h>

#include <algorithm>
#include <charconv>
#include <exception>
#include <limits>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace quillory {
namespace {

JsonNode Parse(std::string_view text) {
    JsonNode root;
    if (ReadJson(text, root)) throw std::invalid_argument("no JSON");
    return root;
}

const JsonNode& MemberOf(const JsonNode& object, std::string_view name) {
    const JsonNode* member = object.Get(name);
    if (member == nullptr) throw std::invalid_argument("no such member");
    return *member;
}

const std::string& TextOf(const JsonNode& value) {
    if (value.kind != JsonKind::Text) throw std::invalid_argument("no text");
    return value.text;
}

// Of a member that may be missing, or null.
std::string TextOf(const JsonNode& object, std::string_view name) {
    const JsonNode* member = object.Get(name);
    return member == nullptr || member->kind == JsonKind::Null ? "" : TextOf(*member);
}

// What is no number, or below 0, is refused.
std::uint64_t NumberOf(const JsonNode& value) {
    std::uint64_t number = 0;
    const char* end = value.text.data() + value.text.size();
    if (value.kind != JsonKind::Whole ||
        std::from_chars(value.text.data(), end, number).ec != std::errc()) {
        throw std::invalid_argument("no number");
    }
    return number;
}

const std::vector<JsonNode>& ItemsOf(const JsonNode& value) {
    if (value.kind != JsonKind::Array) throw std::invalid_argument("no array");
    return value.items;
}

Severity SeverityOf(const JsonNode& object) {
    return SeverityNamed(TextOf(MemberOf(object, "severity"))).value();
}

// A place that was written with question marks for bytes of its tag may be none.
Place PlaceOfFinding(const JsonNode& finding) {
    const JsonNode& number = MemberOf(finding, "occurrence");
    const std::uint32_t occurrence =
        number.kind == JsonKind::Null ? 0 : static_cast<std::uint32_t>(NumberOf(number));
    if (auto place = ParsePlace(TextOf(finding, "place"))) {
        place->occurrence = occurrence;
        return *place;
    }
    const std::string tag = TextOf(finding, "tag");
    if (tag.empty()) return Place::OfRecord();
    const std::string code = TextOf(finding, "subfield");
    const Place field = Place::OfField(tag, occurrence);
    return code.empty() ? field : field.Subfield(code.front());
}

void ReadDamage(const JsonNode& object, CheckLine& line) {
    const bool isStray = object.Get("stray") != nullptr;
    line.item.kind = isStray ? kItemStray : kItemDamaged;
    line.item.controlNumber = TextOf(object, "control_number");
    line.reason = TextOf(MemberOf(object, isStray ? "stray" : "damaged"));
    line.item.fault.emplace();
    line.item.fault->offset = NumberOf(MemberOf(object, "fault_offset"));
}

void ReadWords(const JsonNode& object, CheckLine& line) {
    line.words = {TextOf(MemberOf(object, "control_number")),
                  TextOf(MemberOf(object, "title")),
                  TextOf(MemberOf(object, "material")),
                  {},
                  {}};
}

void ReadLines(const JsonNode& object, CheckLine& line) {
    const JsonNode* fields = object.Get("fields");
    if (fields == nullptr) return;
    for (const JsonNode& field : ItemsOf(*fields)) {
        std::string text = TextOf(field);
        // The leader comes first.
        std::string tag = line.words.lines.empty() ? "" : text.substr(0, kTagSize);
        line.words.lines.push_back({std::move(tag), std::move(text)});
    }
}

void ReadSeverities(const JsonNode& object, CheckLine& line) {
    line.severities.clear();
    for (const auto& [member, rule] : {std::pair("001_severity", RuleId::ControlNumberRepeated),
                                       std::pair("number_severity", RuleId::NumberRepeated)}) {
        const std::string severity = TextOf(object, member);
        if (!severity.empty()) line.severities[rule] = SeverityNamed(severity).value();
    }
}

void ReadNumbersOf(const JsonNode& object, CheckLine& line) {
    line.numbers.clear();
    const JsonNode* numbers = object.Get("numbers");
    if (numbers == nullptr) return;
    for (const JsonNode& number : ItemsOf(*numbers)) line.numbers.push_back(TextOf(number));
}

// What the members before the findings say, and those after them.
void TakeHead(const JsonNode& object, CheckLine& line) {
    line.file = TextOf(MemberOf(object, "file"));
    line.item.Begin(kItemRecord, NumberOf(MemberOf(object, "offset")), {});
    line.item.number = NumberOf(MemberOf(object, "record"));
    line.remarks.clear();
    if (object.Get("fault_offset") != nullptr) {
        ReadDamage(object, line);
    } else {
        ReadWords(object, line);
    }
}

void TakeTail(const JsonNode& object, CheckLine& line) {
    line.words.fault = TextOf(object, "fault");
    ReadLines(object, line);
    ReadNumbersOf(object, line);
    ReadSeverities(object, line);
    const JsonNode* numbersAt = object.Get("numbers_at");
    line.numbersAt = numbersAt != nullptr ? NumberOf(*numbersAt) : line.remarks.size();
    line.controlNumber =
        object.Get("001") != nullptr ? TextOf(object, "001") : line.words.controlNumber;
    if (!line.controlNumber.empty()) line.item.record.fields.push_back({"001", line.controlNumber});
}

constexpr std::string_view kFileMember = "{\"file\":";
constexpr std::string_view kRecordMember = ",\"record\":";
constexpr std::string_view kNumbersMember = ",\"numbers\":[";

}  // namespace

const Rule* CheckLineReader::RuleFor(const std::string& name, const std::string& title,
                                     const std::string& why) {
    constexpr std::size_t kMost = std::numeric_limits<std::uint16_t>::max() - kRules;
    const auto known = byName_.find(name);
    if (known != byName_.end()) return known->second;
    if (rules_.size() >= kMost) return nullptr;
    Rule rule{};
    if (const Rule* ofTable = RuleNamed(name)) {
        rule = *ofTable;
    } else {
        rule.id = static_cast<RuleId>(kRules + own_++);
        rule.name = Keep(name);
        rule.title = Keep(title);
        rule.why = Keep(why);
    }
    rule.words = "{found}";
    rule.command = {};
    return byName_[name] = &rules_.emplace_back(rule);
}

Remark CheckLineReader::RemarkOf(const JsonNode& finding) {
    const Rule* rule = RuleFor(TextOf(MemberOf(finding, "rule")), TextOf(finding, "title"),
                               TextOf(finding, "why"));
    if (rule == nullptr) throw std::length_error("too many rules");
    return {rule, SeverityOf(finding), PlaceOfFinding(finding),
            TextOf(MemberOf(finding, "message"))};
}

// The same findings come in record after record.
const Remark& CheckLineReader::KnownRemark(std::string_view finding) {
    constexpr std::size_t kMost = 20000;
    const auto known = known_.find(finding);
    if (known != known_.end()) return known->second;
    if (known_.size() >= kMost) known_.clear();
    std::string text(finding);
    Remark remark = RemarkOf(Parse(text));
    return known_.emplace(std::move(text), std::move(remark)).first->second;
}

bool CheckLineReader::Read(std::string_view text, CheckLine& line) {
    try {
        if (ReadInParts(text, line)) return true;
    } catch (const std::exception&) {
        line.remarks.clear();  // the whole says what is wrong
    }
    try {
        const JsonNode object = Parse(text);
        TakeHead(object, line);
        ReadNumbersOf(object, line);
        if (line.item.kind != kItemRecord) return true;
        for (const JsonNode& finding : ItemsOf(MemberOf(object, "findings"))) {
            line.remarks.push_back(RemarkOf(finding));
        }
        TakeTail(object, line);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

// A line as a check writes it, with the findings before all that may be missing. In a text of JSON,
// a backslash stands before each quotation mark, so that these signs are found in no text but one
// that ends in "],". What is cut off there can't be read, and the line is read as a whole.
bool CheckLineReader::ReadInParts(std::string_view text, CheckLine& line) {
    constexpr std::string_view kFindings = ",\"findings\":[";
    constexpr std::string_view kNextFinding = ",{\"rule\":\"";
    constexpr std::string_view kNextMember = "],\"";
    const std::size_t head = text.find(kFindings);
    if (head == text.npos || !text.ends_with("]}")) return false;
    const std::size_t begin = head + kFindings.size();
    const std::size_t end = std::min(text.find(kNextMember, begin - 1), text.size() - 2);
    TakeHead(Parse(std::string(text.substr(0, head)) + "}"), line);
    std::string_view findings = text.substr(begin, std::max(begin, end) - begin);
    while (!findings.empty()) {
        const std::string_view finding = findings.substr(0, findings.find(kNextFinding));
        line.remarks.push_back(KnownRemark(finding));
        findings.remove_prefix(std::min(finding.size() + 1, findings.size()));
    }
    const std::string_view tail = text.substr(std::min(end + 2, text.size() - 1));
    TakeTail(Parse("{" + std::string(tail)), line);
    return true;
}

// The members before the numbers are not taken apart where they stand as a check writes them.
bool CheckLineReader::ReadNumbers(std::string_view text, CheckLine& line) {
    const std::size_t numbers = text.rfind(kNumbersMember);
    if (!ReadHead(text, line)) return Read(text, line);
    if (numbers == text.npos) {
        line.numbers.clear();
        return text.find("\"numbers\"") == text.npos || Read(text, line);
    }
    try {
        const std::string object = "{" + std::string(text.substr(numbers + 1));
        ReadNumbersOf(Parse(object), line);
        return true;
    } catch (const std::exception&) {
        return Read(text, line);
    }
}

bool CheckLineReader::ReadHead(std::string_view text, CheckLine& line) {
    const std::size_t end = text.find(kRecordMember);
    if (!text.starts_with(kFileMember) || end == text.npos) return false;
    const std::string_view file = text.substr(kFileMember.size(), end - kFileMember.size());
    if (file != fileAsJson_) {
        JsonNode name;
        if (ReadJson(file, name) || name.kind != JsonKind::Text) return false;
        file_ = std::move(name.text);
        fileAsJson_ = file;
    }
    line.file = file_;
    const char* number = text.data() + end + kRecordMember.size();
    return std::from_chars(number, text.data() + text.size(), line.item.number).ec == std::errc();
}

}  // namespace quillory

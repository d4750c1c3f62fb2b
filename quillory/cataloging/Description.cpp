#include <quillory/cataloging/Description.h>
#include <quillory/exchange/Nesting.h>
#include <quillory/exchange/TextPlace.h>
#include <quillory/faults/FaultCode.h>

#include <algorithm>
#include <utility>

#include <toml++/toml.h>

namespace quillory {
namespace {

constexpr const char* kWorkform = "workform";
constexpr const char* kRecord = "record";
constexpr const char* kIndicatorsKey = "ind";

struct Value {
    std::string_view key;
    const toml::node* node;
};

// In the order of the file; the table itself is in the order of its keys.
std::vector<Value> InOrder(const toml::table& table) {
    std::vector<Value> values;
    for (const auto& [key, node] : table) values.push_back({key.str(), &node});
    std::ranges::sort(values, [](const Value& a, const Value& b) {
        return a.node->source().begin < b.node->source().begin;
    });
    return values;
}

// A text, or the digits of a number.
std::string TextOf(const toml::node& node, std::string_view key) {
    if (const auto* text = node.as_string()) return text->get();
    if (const auto* number = node.as_integer()) return std::to_string(number->get());
    throw EntryError({FaultCode::kNotAText, {}, std::string(key)});
}

// Hands a value to `take`, or each element of an array.
template <class Take>
void ForEach(const toml::node& node, Take take) {
    const toml::array* array = node.as_array();
    if (array == nullptr) {
        take(node);
        return;
    }
    for (const toml::node& element : *array) take(element);
}

Entry ReadField(std::string_view place, const toml::table& table) {
    Entry field = BeginField(place);
    for (const Value& value : InOrder(table)) {
        if (value.key == kIndicatorsKey) {
            SetIndicators(field, TextOf(*value.node, value.key));
            continue;
        }
        ForEach(*value.node, [&](const toml::node& text) {
            AddSubfield(field, value.key, TextOf(text, value.key));
        });
    }
    return field;
}

void ReadValue(const Value& value, Description& description) {
    if (value.key == kWorkform) {
        description.workform = TextOf(*value.node, value.key);
        return;
    }
    ForEach(*value.node, [&](const toml::node& node) {
        const toml::table* table = node.as_table();
        description.entries.push_back(table != nullptr
                                          ? ReadField(value.key, *table)
                                          : ReadEntry(value.key, TextOf(node, value.key)));
    });
}

// The place in the file of a place in a text that begins after so many lines.
LineColumn PlaceOf(const toml::source_position& place, std::uint64_t lines) {
    return {lines + place.line, place.column};
}

void SetError(const toml::source_position& place, std::uint64_t lines, Fault fault,
              Description& description) {
    description.error = std::move(fault);
    description.where = PlaceOf(place, lines);
}

void SetError(const toml::parse_error& error, std::uint64_t lines, Description& description) {
    SetError(error.source().begin, lines,
             {FaultCode::kNotToml, {}, std::string(error.description())}, description);
}

// A text that the parser would go too deep into, and fail without a word. Result: false if it is
// not.
bool SetErrorIfTooDeep(std::string_view toml, std::uint64_t lines, Description& description) {
    const auto at = TooDeepInToml(toml);
    if (!at) return false;
    const LineColumn place = TextPlace().After(toml.substr(0, *at));
    SetError({static_cast<toml::source_index>(place.line),
              static_cast<toml::source_index>(place.column)},
             lines, {FaultCode::kTooDeep, {}, {}, std::to_string(kDeepestNesting)}, description);
    return true;
}

void ReadTable(const toml::table& table, std::uint64_t lines, Description& description) {
    for (const Value& value : InOrder(table)) {
        const std::size_t known = description.entries.size();
        try {
            ReadValue(value, description);
        } catch (const EntryError& error) {
            SetError(value.node->source().begin, lines, error.What(), description);
            return;
        }
        for (std::size_t i = known; i < description.entries.size(); ++i) {
            description.entries[i].where = PlaceOf(value.node->source().begin, lines);
        }
    }
}

bool IsHeader(std::string_view text) {
    const auto skipBlanks = [&text] {
        text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    };
    for (const std::string_view part : {"[[", kRecord, "]]"}) {
        if (!text.starts_with(part)) return false;
        text.remove_prefix(part.size());
        skipBlanks();
    }
    return true;
}

// The next line that begins a record, from there on; npos if there is none.
std::size_t FindRecord(std::string_view toml, std::size_t from) {
    for (std::size_t at = from; (at = toml.find("[[", at)) != toml.npos; ++at) {
        const std::size_t before = at == 0 ? toml.npos : toml.find_last_not_of(" \t", at - 1);
        const bool beginsLine = before == toml.npos || toml[before] == '\n';
        if (beginsLine && IsHeader(toml.substr(at))) return at;
    }
    return toml.npos;
}

// A text of a record may have a line that reads like the beginning of another record. Then the
// record is valid TOML only together with what follows.
constexpr int kJoinedAtMost = 4;

// Reads the record at the front of a text, or says why it can't be read, and gives its size.
toml::table Parse(std::string_view toml, std::uint64_t lines, Description& description) {
    std::size_t size = 0;
    for (int joined = 0; joined < kJoinedAtMost && size < toml.size(); ++joined) {
        size = std::min(FindRecord(toml, size + 1), toml.size());
        if (SetErrorIfTooDeep(toml.substr(0, size), lines, description)) {
            description.size = size;
            return {};
        }
        try {
            toml::table table = toml::parse(toml.substr(0, size));
            description.size = size;
            description.error = {};
            return table;
        } catch (const toml::parse_error& error) {
            if (joined != 0) continue;
            description.size = size;
            SetError(error, lines, description);
        }
    }
    return {};
}

}  // namespace

DescriptionReader::DescriptionReader(std::string_view toml) : rest_(toml) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (rest_.starts_with(kByteOrderMark)) Skip(kByteOrderMark.size());
    hasRecords_ = FindRecord(rest_, 0) != rest_.npos;
    if (hasRecords_) ReadHead();
}

void DescriptionReader::Skip(std::size_t size) {
    line_ += static_cast<std::uint64_t>(std::ranges::count(rest_.substr(0, size), '\n'));
    offset_ += size;
    rest_.remove_prefix(size);
}

void DescriptionReader::ReadHead() {
    const std::size_t size = FindRecord(rest_, 0);
    headText_ = rest_.substr(0, size);
    const std::uint64_t lines = line_ - 1;
    if (SetErrorIfTooDeep(rest_.substr(0, size), lines, head_)) return;
    try {
        ReadTable(toml::parse(rest_.substr(0, size)), lines, head_);
    } catch (const toml::parse_error& error) {
        SetError(error, lines, head_);
    }
    if (!head_.error && !head_.entries.empty()) {
        const Entry& first = head_.entries.front();
        head_.error = {FaultCode::kOutsideOfRecords, first.place};
        head_.where = first.where.value_or(LineColumn());
    }
    if (!head_.error) Skip(size);
}

bool DescriptionReader::Next(Description& description) {
    if (rest_.empty()) return false;
    description = {};
    description.workform = head_.workform;
    description.offset = offset_;
    description.line = line_;
    if (head_.error) {
        description.error = std::exchange(head_.error, {});
        description.where = head_.where;
        description.size = FindRecord(rest_, 0);
    } else {
        ReadRecord(description);
    }
    Skip(description.size);
    return true;
}

void DescriptionReader::ReadRecord(Description& description) {
    const std::uint64_t lines = line_ - 1;
    const toml::table root = Parse(rest_, lines, description);
    if (description.error) return;
    if (!hasRecords_) {
        ReadTable(root, lines, description);
        return;
    }
    const toml::array* records = root[kRecord].as_array();
    const bool isOne = records != nullptr && records->size() == 1 && root.size() == 1;
    if (isOne) {
        ReadTable(*records->get(0)->as_table(), lines, description);
    } else {
        SetError({1, 1}, lines, {FaultCode::kNotOneRecord}, description);
    }
}

}  // namespace quillory

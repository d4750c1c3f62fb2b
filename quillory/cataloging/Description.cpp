#include <quillory/cataloging/Description.h>

#include <algorithm>

#include <toml++/toml.h>

namespace quillory {
namespace {

constexpr const char* kWorkform = "workform";
constexpr const char* kRecord = "record";
constexpr const char* kIndicators = "ind";
constexpr std::string_view kHeader = "[[record]]";

// A value and its key, in the order of the file: tables are in that of their keys.
struct Value {
    std::string_view key;
    const toml::node* node;
};

std::vector<Value> InOrder(const toml::table& table) {
    std::vector<Value> values;
    for (const auto& [key, node] : table) values.push_back({key.str(), &node});
    std::ranges::sort(values, [](const Value& a, const Value& b) {
        return a.node->source().begin < b.node->source().begin;
    });
    return values;
}

// A text, or a number as it would be written.
std::string TextOf(const toml::node& node, std::string_view key) {
    if (const auto* text = node.as_string()) return text->get();
    if (const auto* number = node.as_integer()) return std::to_string(number->get());
    throw EntryError(key, "is no text");
}

// One value, or each of an array.
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
        if (value.key == kIndicators) {
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

// Places are counted from the line before that on which the text begins.
std::string PlaceOf(const toml::source_position& place, std::uint64_t lines) {
    return "line " + std::to_string(lines + place.line) + ", column " +
           std::to_string(place.column) + ": ";
}

// Result: why the table is no record, or nothing.
std::string ReadTable(const toml::table& table, std::uint64_t lines, Description& description) {
    for (const Value& value : InOrder(table)) {
        try {
            ReadValue(value, description);
        } catch (const EntryError& error) {
            return PlaceOf(value.node->source().begin, lines) + error.what();
        }
    }
    return {};
}

// The next line that begins a record, behind the first one; npos without.
std::size_t FindRecord(std::string_view toml, std::size_t from) {
    for (std::size_t at = from; (at = toml.find(kHeader, at)) != toml.npos; ++at) {
        const std::size_t begin = toml.find_last_not_of(" \t", at == 0 ? toml.npos : at - 1);
        if (at == 0 || begin == toml.npos || toml[begin] == '\n') return at;
    }
    return toml.npos;
}

// A record that is no TOML may have a text that reads like the beginning of another record: then it
// is TOML with what follows.
constexpr int kJoinedAtMost = 4;

struct Parsed {
    toml::table root;
    std::size_t size = 0;
    std::string error;
};

Parsed Parse(std::string_view toml, std::uint64_t lines) {
    Parsed parsed;
    std::size_t size = 0;
    for (int joined = 0; joined < kJoinedAtMost && size < toml.size(); ++joined) {
        size = std::min(FindRecord(toml, size + (joined == 0 ? 1 : kHeader.size())), toml.size());
        try {
            parsed.root = toml::parse(toml.substr(0, size));
            parsed.size = size;
            parsed.error.clear();
            return parsed;
        } catch (const toml::parse_error& error) {
            if (joined != 0) continue;
            parsed.size = size;
            parsed.error = PlaceOf(error.source().begin, lines) + std::string(error.description());
        }
    }
    return parsed;
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
    try {
        const toml::table head = toml::parse(rest_.substr(0, size));
        for (const Value& value : InOrder(head)) {
            const std::string place = PlaceOf(value.node->source().begin, 0);
            if (value.key == kWorkform) {
                workform_ = TextOf(*value.node, place + kWorkform);
            } else {
                headError_ = place + std::string(value.key) + ": stands outside of the records";
            }
        }
    } catch (const toml::parse_error& error) {
        headError_ = PlaceOf(error.source().begin, 0) + std::string(error.description());
    } catch (const EntryError& error) {
        headError_ = error.what();
    }
    if (headError_.empty()) Skip(size);
}

bool DescriptionReader::Next(Description& description) {
    if (rest_.empty()) return false;
    description = {};
    description.workform = workform_;
    description.offset = offset_;
    description.line = line_;
    if (!headError_.empty()) {
        description.error = std::exchange(headError_, {});
        description.size = FindRecord(rest_, 0);
    } else {
        ReadRecord(description);
    }
    Skip(description.size);
    return true;
}

void DescriptionReader::ReadRecord(Description& description) {
    const std::uint64_t lines = line_ - 1;
    Parsed parsed = Parse(rest_, lines);
    description.size = parsed.size;
    description.error = parsed.error;
    if (!description.error.empty()) return;
    if (!hasRecords_) {
        description.error = ReadTable(parsed.root, lines, description);
        return;
    }
    const toml::array* records = parsed.root[kRecord].as_array();
    const bool isOne = records != nullptr && records->size() == 1 && parsed.root.size() == 1;
    if (isOne) {
        description.error = ReadTable(*records->get(0)->as_table(), lines, description);
    } else {
        description.error = PlaceOf({1, 1}, lines) + "what follows is not one record";
    }
}

}  // namespace quillory

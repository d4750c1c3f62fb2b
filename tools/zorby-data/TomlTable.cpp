#include <algorithm>
#include <charconv>
#include <sstream>

#include <tools/zorby-data/CellText.h>
#include <tools/zorby-data/TomlTable.h>

namespace datatool {
namespace {

std::vector<std::string> Words(std::string_view text) {
    std::istringstream stream{std::string(text)};
    std::vector<std::string> words;
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

Place PlaceOfNode(std::size_t file, const toml::node& node) {
    const toml::source_position& begin = node.source().begin;
    return {file, begin.line, begin.column};
}

}  // namespace

void TomlTable::CheckKeys(std::string_view needed, std::string_view optional) const {
    std::vector<std::string> known = Words(needed);
    std::string missing;
    for (const std::string& key : known) {
        if (!Has(key)) missing += (missing.empty() ? "" : ", ") + key;
    }
    if (!missing.empty()) faults_->Add(PlaceOfNode(file_, *table_), "there is no " + missing);
    std::ranges::copy(Words(optional), std::back_inserter(known));
    for (const auto& [key, value] : *table_) {
        if (std::ranges::find(known, key.str()) == known.end()) {
            Fault(value, key.str(), "isn't a key here");
        }
    }
}

Place TomlTable::PlaceOf(std::string_view key) const {
    const toml::node* node = table_->get(key);
    return PlaceOfNode(file_, node == nullptr ? *table_ : *node);
}

void TomlTable::Fault(std::string_view key, const std::string& reason) const {
    Fault(PlaceOf(key), key, reason);
}

void TomlTable::Fault(const toml::node& node, std::string_view key,
                      const std::string& reason) const {
    Fault(PlaceOfNode(file_, node), key, reason);
}

void TomlTable::Fault(const Place& place, std::string_view key, const std::string& reason) const {
    faults_->Add(place, std::string(key) + ": " + reason);
}

std::string TomlTable::TextOf(const toml::node& node, std::string_view key) const {
    const auto* text = node.as_string();
    if (text == nullptr) {
        Fault(node, key, "isn't a text");
        return {};
    }
    CellText decoded = DecodeText(text->get());
    if (!decoded.fault.empty()) Fault(node, key, decoded.fault);
    return std::move(decoded.text);
}

char TomlTable::CodeOf(const toml::node& node, std::string_view key) const {
    const std::string text = TextOf(node, key);
    if (text.size() != 1) Fault(node, key, "isn't one character");
    return text.empty() ? '\0' : text.front();
}

std::string TomlTable::Text(std::string_view key) const {
    const toml::node* node = table_->get(key);
    return node == nullptr ? std::string() : TextOf(*node, key);
}

std::string TomlTable::Text(std::string_view key, std::size_t size) const {
    std::string text = Text(key);
    if (Has(key) && text.size() != size) {
        Fault(key,
              "has " + std::to_string(text.size()) + " characters, not " + std::to_string(size));
    }
    return text;
}

char TomlTable::Code(std::string_view key) const {
    const toml::node* node = table_->get(key);
    return node == nullptr ? '\0' : CodeOf(*node, key);
}

unsigned TomlTable::Tag(std::string_view key) const {
    const std::string digits = Text(key);
    unsigned tag = 0;
    const char* const end = digits.data() + digits.size();
    const bool isNumber = std::from_chars(digits.data(), end, tag).ptr == end;
    if (Has(key) && (!isNumber || tag == 0 || digits.size() != kTagDigits)) {
        Fault(key, "isn't a tag from 001 to 999");
    }
    return tag;
}

int TomlTable::Number(std::string_view key, int lowest, int highest) const {
    const toml::node* node = table_->get(key);
    if (node == nullptr) return 0;
    const auto* number = node->as_integer();
    if (number == nullptr || number->get() < lowest || number->get() > highest) {
        Fault(key,
              "isn't a number from " + std::to_string(lowest) + " to " + std::to_string(highest));
        return 0;
    }
    return static_cast<int>(number->get());
}

std::vector<TomlTable> TomlTable::Tables(std::string_view key) const {
    std::vector<TomlTable> tables;
    const toml::node* node = table_->get(key);
    if (node == nullptr) return tables;
    const toml::array* array = node->as_array();
    if (array == nullptr || !array->is_homogeneous(toml::node_type::table)) {
        Fault(key, "isn't written in tables [[" + std::string(key) + "]]");
        return tables;
    }
    for (const toml::node& table : *array) tables.emplace_back(*table.as_table(), file_, *faults_);
    return tables;
}

TomlTable::CodeAndText TomlTable::CodeAndTextOf(const toml::node& node,
                                                std::string_view key) const {
    const toml::array* pair = node.as_array();
    const Place place = PlaceOfNode(file_, node);
    if (pair == nullptr) return {CodeOf(node, key), {}, place};
    if (pair->size() == 2) return {CodeOf(*pair->get(0), key), TextOf(*pair->get(1), key), place};
    Fault(node, key, "isn't a code and a text");
    return {};
}

std::vector<TomlTable::CodeAndText> TomlTable::CodesAndTexts(std::string_view key) const {
    std::vector<CodeAndText> items;
    const toml::node* node = table_->get(key);
    if (node == nullptr) return items;
    const toml::array* array = node->as_array();
    if (array == nullptr || array->empty()) {
        Fault(key, "isn't an array with one element or more");
        return items;
    }
    for (const toml::node& item : *array) items.push_back(CodeAndTextOf(item, key));
    return items;
}

std::string TomlText(std::string_view text) {
    constexpr auto kForm =
        toml::format_flags::allow_multi_line_strings | toml::format_flags::allow_unicode_strings;
    const toml::value<std::string> value(EncodeText(text));
    std::ostringstream stream;
    stream << toml::toml_formatter(value, kForm);
    return stream.str();
}

}  // namespace datatool

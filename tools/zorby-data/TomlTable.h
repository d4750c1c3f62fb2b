#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <toml++/toml.h>
#include <tools/zorby-data/Faults.h>

namespace datatool {

// A table of a TOML source, read by its keys; texts are turned into the one-byte code. What a key
// may not hold is added to the faults; its value is then 0 or empty, as without the key. Columns of
// places are in characters.
class TomlTable {
public:
    TomlTable(const toml::table& table, std::size_t file, Faults& faults)
        : table_(&table), file_(file), faults_(&faults) {}

    // The names of the keys, a blank between them.
    void CheckKeys(std::string_view needed, std::string_view optional) const;
    bool Has(std::string_view key) const { return table_->contains(key); }
    // Of the value, or of the table without the key.
    Place PlaceOf(std::string_view key) const;
    void Fault(std::string_view key, const std::string& reason) const;
    void Fault(const Place& place, std::string_view key, const std::string& reason) const;

    std::string Text(std::string_view key) const;
    // So many characters.
    std::string Text(std::string_view key, std::size_t size) const;
    // One character.
    char Code(std::string_view key) const;
    // Three digits, from 001.
    unsigned Tag(std::string_view key) const;
    int Number(std::string_view key, int lowest, int highest) const;
    std::vector<TomlTable> Tables(std::string_view key) const;
    struct CodeAndText {
        char code = '\0';
        std::string text;
        Place place;
    };
    // An array of codes, each with a text in an array of the two, or alone for an empty text.
    std::vector<CodeAndText> CodesAndTexts(std::string_view key) const;

private:
    void Fault(const toml::node& node, std::string_view key, const std::string& reason) const;
    std::string TextOf(const toml::node& node, std::string_view key) const;
    char CodeOf(const toml::node& node, std::string_view key) const;
    CodeAndText CodeAndTextOf(const toml::node& node, std::string_view key) const;

    const toml::table* table_;
    std::size_t file_;
    Faults* faults_;
};

// A text in the one-byte code as a TOML value.
std::string TomlText(std::string_view text);

}  // namespace datatool

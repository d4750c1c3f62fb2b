#pragma once

#include <quillory/faults/Errors.h>
#include <quillory/places/LineColumn.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

struct TomlMember;

enum class TomlKind : std::uint8_t { Table, Array, Text, Number, Flag, Other };

// A value of a TOML file, and where it stands.
struct TomlNode {
    TomlKind kind = TomlKind::Table;
    LineColumn at;
    std::string text;                 // of a text, a whole number, or true and false
    std::vector<TomlNode> items;      // of an array
    std::vector<TomlMember> members;  // of a table, by their keys

    // Null if the table has no such key.
    const TomlNode* Get(std::string_view key) const;
    // Of a text, a number, true or false. Throws TomlFault for any other value.
    const std::string& Text() const;
};

struct TomlMember {
    std::string key;
    LineColumn at;  // of the key
    TomlNode value;
};

// What nothing can be made of, and where it stands.
class TomlFault : public FaultError {
public:
    TomlFault(const LineColumn& at, Fault fault) : FaultError(std::move(fault)), at_(at) {}
    TomlFault(const LineColumn& at, const FaultError& error) : FaultError(error), at_(at) {}

    const LineColumn& At() const { return at_; }

private:
    LineColumn at_;
};

// Throws TomlFault for the first key of the table that is none of these; it names the nearest.
void CheckKeys(const TomlNode& table, const std::vector<std::string_view>& keys);

// The table that a TOML file is. `name` is that of the file, for errors. Throws FileError.
TomlNode ReadToml(std::string_view toml, const std::string& name);

// An error with the name of its file: "task.toml:3:7: ...".
FileError InFile(const std::string& name, const TomlFault& fault);

}  // namespace quillory

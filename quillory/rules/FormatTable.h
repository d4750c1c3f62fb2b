#pragma once

#include <quillory/checks/FieldRules.h>

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Positions of the Leader or of a control field, each of which holds a code of one character.
struct CodedPositions {
    unsigned tag = 0;  // 0 for the Leader
    std::size_t first = 0;
    std::size_t last = 0;
    std::string element;
    ByteSet current;
    ByteSet obsolete;

    bool IsUndefined() const { return element == "Undefined"; }
};

// A row of a table that does not fit. The text names the table, the line and the reason.
class FormatTableError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// What a format other than the bibliographic one is made of. data/marc21/formats/README.md tells
// what a table looks like.
class FormatTable {
public:
    // `name` is that of the table in errors. With `allowLocal`, what the format leaves to libraries
    // is known. Throws FormatTableError.
    FormatTable(std::string_view text, const std::string& name, bool allowLocal);

    const FieldRules& Rules() const { return rules_; }
    // Of a control field, in characters; 0 where it may have any.
    std::size_t LengthOf(unsigned tag) const { return lengths_[tag]; }
    bool IsMandatory(unsigned tag) const { return mandatory_[tag]; }
    const std::vector<CodedPositions>& Positions() const { return positions_; }

private:
    class Reader;

    std::array<std::size_t, kFirstDataTag> lengths_{};
    std::array<bool, kTags> mandatory_{};
    std::vector<CodedPositions> positions_;
    FieldRules rules_;
};

}  // namespace quillory

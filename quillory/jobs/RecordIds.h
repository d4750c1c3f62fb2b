#pragma once

#include <quillory/queries/Values.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillory {

// The control numbers, or other values, by which a person asks for records.
class RecordIdList {
public:
    // Reads a file of one ID a line; blanks at the ends of a line don't count. Throws FileError.
    RecordIdList(const std::string& path, PlaceSet places, Charset charset);

    // Whether one of the record's values is an ID, as a whole or up to its first blank, as in
    // "9780801485190 (pbk.)".
    bool Has(const Record& record);
    // The IDs of no record so far, in the order of the file.
    std::vector<std::string> NotMet() const;
    std::size_t Size() const { return ids_.size(); }

private:
    bool Meet(std::string_view value);

    PlaceSet places_;
    ValueReader reader_;
    std::vector<std::string> ids_;
    std::unordered_map<std::string, bool> met_;
};

}  // namespace quillory

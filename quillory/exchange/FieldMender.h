#pragma once

#include <quillory/exchange/Record.h>

#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Mends the content of a data field that is not made of two indicators and subfields with codes,
// where it is clear what was meant: delimiters without a code and field terminators within are left
// out, a wrong number of indicators becomes two, and text after two blanks is subfield $a.
class FieldMender {
public:
    struct Mended {
        bool isRead = true;              // false if it is not clear what was meant
        std::string_view content = {};   // the one given, or one that is held here
        std::vector<Fault> faults = {};  // what was done, without the place
    };

    Mended Mend(std::string_view tag, std::string_view content);
    void Clear() { held_.clear(); }

private:
    std::deque<std::string> held_;
};

}  // namespace quillory

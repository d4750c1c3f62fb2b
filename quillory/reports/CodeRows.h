#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/coded/Places.h>
#include <quillory/text/JsonWriter.h>

#include <string>
#include <vector>

namespace quillory {

// A code in a list of an element of the control fields, in UTF-8.
struct CodeRow {
    std::string field;  // "leader", "006", "007", "008"
    std::string form;
    std::string positions;
    int part = 0;            // number of the library's list
    std::string list;        // its title, or the element's name for a code that it lacks
    std::string code;        // with "#" for a blank
    std::string secondCode;  // of the combined form of item, else empty
    std::string text;
    std::string status;  // as in StatusText
    std::string since;
    std::string until;
    std::string use;
};
using CodeRows = std::vector<CodeRow>;

// The lists of elements, of all if none are named: a row for each code of each list of the library,
// and one for each code that the published format has besides.
CodeRows ListCodes(const std::vector<NamedElement>& elements, const CodeLists& lists);

// Values between tabs, with their names in the first line.
std::string ToText(const CodeRows& rows);
void ToJson(const CodeRow& row, JsonWriter& json);

}  // namespace quillory

#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/coded/Places.h>
#include <quillory/text/JsonWriter.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// What is known of an element of the control fields, in UTF-8. An element that several forms share
// at one place, with the same codes, is one document.
struct CodedElementDocument {
    std::string place;  // "008/18-21"
    std::string name;
    std::vector<std::string> forms;  // "books"; "all" alone if it is of every form
    std::vector<int> parts;          // numbers of the library's lists
    std::string also;                // its other place, in 006 or 008; empty if it has one only
    int width = 0;                   // in characters
    std::vector<CodeMeaning> codes;  // empty if its values are no codes
    int codeLength = 0;              // in characters, where there are codes
    std::string formerName;          // of what was in positions that are undefined now
};
using CodedElements = std::vector<CodedElementDocument>;

CodedElements DescribeElements(const std::vector<NamedElement>& elements, const CodeLists& lists);

// With all codes, or a line for each element.
std::string ToText(const CodedElements& elements);
std::string ToBriefText(const CodedElements& elements);
// A blank in a code is "#".
void ToJson(const CodedElementDocument& element, JsonWriter& json);
void ToJson(const CodeMeaning& code, JsonWriter& json);

// "current"; "newer", if it is in force but not in the library's list; "obsolete"; or "local", if
// it is in use but the format does not have it.
std::string_view StatusText(const CodeMeaning& code);

// "obsolete since 2008, now srp", "newer than the library's list, of 2012"; empty for a code in
// force.
std::string RemarkText(const CodeMeaning& code);

// A code as cataloguers write it, blanks as "#".
std::string CodeText(std::string_view code);

}  // namespace quillory

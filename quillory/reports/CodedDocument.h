#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/coded/Places.h>
#include <quillory/reports/Dictionary.h>

#include <string>
#include <vector>

namespace quillory {

// Elements of the control fields as a document for a person or a program; a blank in a code is "#".
// An element that several forms share at one place, with the same codes, is told once.
Document DescribeElements(const std::vector<NamedElement>& elements, const CodeLists& lists);

// The lists of elements, of all if none are named: a row for each code of each list of the library,
// and one for each code that the published format has besides.
Document ListCodes(const std::vector<NamedElement>& elements, const CodeLists& lists);

// "current"; "newer", if it is in force but not in the library's list; "obsolete"; or "local", if
// it is in use but the format has it not.
std::string StatusText(const CodeMeaning& code);

// A code as cataloguers write it, blanks as "#".
std::string CodeText(std::string_view code);

}  // namespace quillory

#pragma once

#include <quillory/reports/Dictionary.h>

#include <string>

namespace quillory {

// Elements of the control fields, in lines for a person: with all their codes, or one line each.
std::string ElementsText(const Document& elements);
std::string ElementNamesText(const Document& elements);

// "obsolete since 2008, now srp", "newer than the library's list, of 2012"; empty for a code in
// force.
std::string RemarkText(const std::string& status, const std::string& since,
                       const std::string& until, const std::string& use);

}  // namespace quillory

#pragma once

#include <quillory/queries/Query.h>

#include <optional>
#include <string>
#include <string_view>

namespace quillory {

// Conditions of the library in their text form, as queries on records, and back:
//     Tag=650x\\OnlyWhen=1\\AnySubfield1=0\\Subfield1=120\\ContainType1=0\\ContainsText1=HISTORY\\...
// A condition has one test, or two joined by "and" or "or", of subfields of one field. For a record
//     contains            is   650x like "HISTORY"
//     does not contain    is   not 650x like "HISTORY"
//     is not empty        is   has 650x, with a text that is not empty
//     is empty or missing is   the reverse of that
// "Any subfield" is the whole field. Texts are UTF-8.

// A condition that does not apply ("always") holds for every record. A text that is no condition,
// or is one on elements of copies, is a fault.
QueryReading ParseCondition(std::string_view text, const QueryOptions& options = {});

// The condition that says the same as an expression of such tests. With `exact`, case counts.
// Nothing if no condition says it.
std::optional<std::string> ConditionTextOf(std::string_view expression, bool exact);

}  // namespace quillory

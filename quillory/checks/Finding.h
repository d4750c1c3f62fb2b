#pragma once

#include <quillory/places/Place.h>
#include <zorby/checking/ErrorCode.h>

#include <string>

namespace quillory {

// One finding on a record, and where it is.
struct Finding {
    zorby::E_ERROR_CODE code = {};
    zorby::E_ERROR_CODE_SUB_TYPE severity = zorby::EST_Error;
    Place place = {};  // occurrence 0 where the record lacks the field

    bool IsError() const { return severity == zorby::EST_Error; }
};

// Severity, the library's words and the place in a line: "E: ... [245 $a]". The policy that made
// the finding must be in force.
std::string LineText(const Finding& finding);

}  // namespace quillory

#pragma once

#include <zorby/workforms/Template.h>

#include <string>

namespace quillory {

// Changes what a new record begins with. `setting` is 245a=TEXT or 245$a=TEXT, in UTF-8. The text
// goes to the subfield in the first field of the tag; where there is no such subfield, it is added
// at that field's end, and where there is no such field, it is added before the first of a higher
// tag, with the indicators that the workform or the dictionary has for it. Throws FileError.
void SetDefaultData(const std::string& setting, zorby::CTemplate& workform);

}  // namespace quillory

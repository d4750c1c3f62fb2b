#pragma once

#include <quillory/jobs/EditStore.h>
#include <quillory/text/JsonWriter.h>

#include <string>

namespace quillory {

// A change of a record of the store: when and what, and the lines that are gone and new.
std::string ToText(const FormerVersion& version, bool colour);
void ToJson(const FormerVersion& version, JsonWriter& json);

}  // namespace quillory

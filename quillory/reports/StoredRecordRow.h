#pragma once

#include <quillory/store/RecordStore.h>
#include <quillory/text/JsonWriter.h>

#include <string>

namespace quillory {

// A record of the store in a list, without its bytes. As text: ID, control number, type and level,
// and title in columns, with the end of the line.
std::string ToText(const StoredRecord& record);
void ToJson(const StoredRecord& record, JsonWriter& json);

}  // namespace quillory

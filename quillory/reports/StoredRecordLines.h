#pragma once

#include <quillory/store/RecordStore.h>

#include <string>

namespace quillory {

// A record of the store in a list: a JSON object, or ID, control number, type and level, and title
// in columns. With a line end.
std::string StoredRecordJson(const StoredRecord& record);
std::string StoredRecordText(const StoredRecord& record);

}  // namespace quillory

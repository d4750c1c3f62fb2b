#pragma once

#include <quillory/cards/CardRecord.h>

#include <functional>
#include <string>
#include <vector>

namespace quillory {

// The notes of a record, one text each, led by the words that the field and its indicator stand for
// (MARC 21 Format for Bibliographic Data, display constants): "Contents: ". Fields that are not for
// the public are left out, and those that `takes` does not take.
std::vector<std::string> Notes(const CardRecord& record,
                               const std::function<bool(const std::string& tag)>& takes);

}  // namespace quillory

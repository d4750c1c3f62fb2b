#pragma once

#include <quillory/jobs/Settings.h>
#include <quillory/text/JsonWriter.h>

#include <string>
#include <vector>

namespace quillory {

using SettingRows = std::vector<SettingRow>;

// In columns: number, name and value; of what has no number, name and value.
std::string ToText(const SettingRows& rows);
void ToJson(const SettingRow& row, JsonWriter& json);

}  // namespace quillory

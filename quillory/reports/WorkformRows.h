#pragma once

#include <quillory/jobs/WorkformCatalog.h>
#include <quillory/text/JsonWriter.h>

#include <optional>
#include <string>
#include <vector>

namespace quillory {

// A workform in a list, in UTF-8.
struct WorkformRow {
    int id = 0;
    std::string name;
    bool isStandard = false;
    std::string material;
    int materialType = 0;
    std::optional<std::string> base;  // the workform that it rests on, if that is another
    bool baseIsMissing = false;
};
using WorkformRows = std::vector<WorkformRow>;

WorkformRow RowOf(const WorkformEntry& entry, const zorby::CTemplate& workform);

// Workforms of one material together, the materials in the order of their first workforms.
void SortByMaterial(WorkformRows& rows);

// In columns: ID, name, material and, if wanted, base.
std::string ToText(const WorkformRows& rows, bool withBase);
// The base as it is shown to a person.
std::string BaseText(const WorkformRow& row);

void ToJson(const WorkformRow& row, JsonWriter& json);
// The members alone, in an object that has been begun.
void AddMembers(const WorkformRow& row, JsonWriter& json);

}  // namespace quillory

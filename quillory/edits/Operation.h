#pragma once

#include <quillory/edits/EditedRecord.h>
#include <quillory/queries/PlaceSet.h>

#include <functional>
#include <vector>

namespace quillory {

// Which fields of a record, by their index, a step may look at; all if empty.
using FieldFilter = std::function<bool(std::size_t field)>;

// One step of a task, ready to be carried out in any record.
class Operation {
public:
    virtual ~Operation() = default;
    // Throws EditRefused.
    virtual void Run(EditedRecord& record, const FieldFilter& isMeant) const = 0;
};

// The fields that a pattern covers, from the first to the last.
std::vector<std::size_t> FieldsOf(EditedRecord& record, const PlacePattern& pattern,
                                  const FieldFilter& isMeant);

// Removes fields; the indices are in order.
void RemoveFields(EditedRecord& record, const std::vector<std::size_t>& indices);

// Puts a field after the last one of its tag, or else before the first of a higher tag.
void InsertField(EditedRecord& record, std::string_view tag, std::string content);

// Whether the record has a field of just this content.
bool HasField(EditedRecord& record, std::string_view tag, std::string_view content);

}  // namespace quillory

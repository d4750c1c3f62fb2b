#pragma once

#include <quillory/checks/RecordInHand.h>
#include <quillory/rules/RemarkSink.h>

#include <cstddef>

namespace quillory {

// What control fields have in common in all formats.

// Field 005.
void CheckTimeStamp(const CheckedField& field, RemarkSink& remarks);
// The first six positions of field 008.
void CheckDayOfEntry(const CheckedField& field, RemarkSink& remarks);
// False for a field of another length, whose positions can't be trusted.
bool CheckLength(const CheckedField& field, std::size_t size, RemarkSink& remarks);

}  // namespace quillory

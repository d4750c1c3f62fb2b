#pragma once

#include <quillory/coded/CodeLists.h>
#include <quillory/edits/EditSession.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Whether these positions of the Leader say how the record is stored. The writer of a file sets
// them, and nobody else.
bool BelongsToTheFile(const Place& place);

// The form by which a coded field of a record is read, or the Leader (`field` is empty). CF006None
// and CF007None if it is not known.
zorby::CFType FormOfCoded(const EditSession::State& record, std::optional<std::size_t> field);

// The record with other bytes from a position of a coded field on, or of the Leader. A field that
// ends before gets fill characters up to there. Where the bytes say of which material a field is
// (Leader/06 and 07, 006/00, 007/00), that field, or the positions 18 to 34 of 008, are put into
// the form of the new material. An element of the same name keeps its value where the codes mean
// the same, and all others are as in a new record of that material. The workforms have to be in
// force.
EditSession::State WithCoded(EditSession::State record, std::optional<std::size_t> field,
                             std::size_t first, std::string_view value, const CodeLists& lists);

// The names of the elements of 006, 007 and 008 that said more than a new field does, and that have
// no place in the material by which their field is read after such a step.
std::vector<std::string> NamesOfLost(const EditSession::State& before,
                                     const EditSession::State& after);

}  // namespace quillory

#pragma once

#include <cstddef>
#include <optional>

namespace quillory {

// Takes the numbers of those of standard input, output and error that the caller has closed, so
// that no file that is opened later gets them. Reading from or writing to them still fails.
void ReserveStandardStreams();

// The columns of the terminal that standard output is; none if it is something else.
std::optional<std::size_t> ColumnsOfOutput();

// The columns of lines of help: as many as there are, if lines are not hard to read then.
std::size_t ColumnsOfHelp();

}  // namespace quillory

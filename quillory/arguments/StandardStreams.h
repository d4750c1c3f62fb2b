#pragma once

namespace quillory {

// Takes the numbers of those of standard input, output and error that the caller has closed, so
// that no file that is opened later gets them. Reading from or writing to them still fails.
void ReserveStandardStreams();

}  // namespace quillory

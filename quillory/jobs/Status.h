#pragma once

namespace quillory {

// How a job ended. The command line gives it to its caller as the exit status.
enum Status : int { kStatusWell = 0, kStatusFindings = 1, kStatusFailed = 2 };

}  // namespace quillory

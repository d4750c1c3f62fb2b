#pragma once

#include <string>

namespace quillory {

// Why a file could not be saved if it had to be now: it may not be written, or its disk is full.
// Empty if nothing is in the way. A file is saved by writing another one beside it.
std::string ObstacleToSaving(const std::string& path);

}  // namespace quillory

#pragma once

#include <string>
#include <vector>

namespace quillory {

// Names that a shell offers as it completes a command line. These read settings, data files and the
// store, and throw FileError.

std::vector<std::string> OfferedWorkforms();
std::vector<std::string> OfferedOwnWorkforms();
std::vector<std::string> OfferedHoldingsSystems();
std::vector<std::string> OfferedSettings();

}  // namespace quillory

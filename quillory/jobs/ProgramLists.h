#pragma once

#include <string>
#include <utility>
#include <vector>

namespace quillory {

// What help and manual pages tell of a program as a whole: terms, each with what it means.
using TermsAndMeanings = std::vector<std::pair<std::string, std::string>>;

// The statuses that the command line gives to its caller.
TermsAndMeanings ExitStatuses();

// The variables of the environment that all programs read.
TermsAndMeanings EnvironmentVariables();

}  // namespace quillory

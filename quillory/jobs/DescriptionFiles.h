#pragma once

#include <quillory/cataloging/Description.h>
#include <quillory/exchange/Input.h>

#include <string>

namespace quillory {

// All of a file, or of standard input ("-"). Throws FileError, and for an empty file, too.
std::string ReadDescriptionFile(const std::string& path);

}  // namespace quillory

#pragma once

#include <zorby/archive/Object.h>

#include <string>

namespace zorby {

// Loads an object from a file that the program can't do without. Returns 1, or 0 if the file can't
// be opened, after telling the user through the MessagePort in force. Throws CArchiveException if
// the file can't be read completely.
int LoadDataFile(const std::string& path, CObject& object);

}  // namespace zorby

#pragma once

#include <zorby/archive/Object.h>

#include <string>

namespace zorby {

// Loads an object from a file that the program can't do without. Result 1; 0 if the file can't be
// opened, and the user has then been told through the MessagePort in force. Throws
// CArchiveException where the file can't be read whole.
int LoadDataFile(const std::string& path, CObject& object);

}  // namespace zorby

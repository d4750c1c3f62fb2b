#pragma once

#include <filesystem>

namespace zorby {

// The folder of the shared library, or of the program that the library is a part of; empty if the
// system doesn't tell.
std::filesystem::path LibraryFolder();

// The file of the running program; empty if the system doesn't tell.
std::filesystem::path ProgramFile();

}  // namespace zorby

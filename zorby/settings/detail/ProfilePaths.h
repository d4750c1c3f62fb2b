#pragma once

#include <string>

namespace zorby {

// Returns the path of the user's file in the other one of two installations that share their data:
// a normal one, and one for learning in a folder inside it. The data folder and the user are those
// that GetZorbyProfilePath found.
std::string OtherProfilePath();

}  // namespace zorby

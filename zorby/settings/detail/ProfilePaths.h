#pragma once

#include <string>

namespace zorby {

// The user's file of the other of two installations that share their data: a normal one, and one
// for learning in a folder inside it. The data folder and the user are those that
// GetZorbyProfilePath settled.
std::string OtherProfilePath();

}  // namespace zorby

#pragma once

#include <string>
#include <string_view>

namespace quillory {

// The names in braces by which the line form writes characters, as the Library of Congress
// published them with MARCMaker and MARCBreaker 2.5 (conversion tables of 2002).

// The bytes of MARC-8 for a name, without its braces: "acute", "eacute", "Lstrok", "C3". Empty if
// there is no such name.
std::string MnemonicBytes(std::string_view name);

// The name for a byte of MARC-8 from 0x80 on: "acute", or two hexadecimal digits.
std::string MnemonicOf(char byte);

}  // namespace quillory

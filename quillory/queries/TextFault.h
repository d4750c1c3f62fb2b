#pragma once

#include <quillory/faults/Fault.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace quillory {

// What is wrong with a text that a person wrote, and which bytes of it are meant. A length of 0 is
// a place between two bytes, as at the end of the text.
struct TextFault : Fault {
    std::size_t offset = 0;
    std::size_t length = 0;
};

// The words of a fault, then the line of the text that it is in, and carets under what is meant:
//     there is no material "mapp"; the materials are ...
//         has 650 and material = mapp
//                                ^~~~
// The lines have no end behind the last one. Bytes that could steer a terminal are question marks.
std::string CaretText(std::string_view text, const TextFault& fault);

}  // namespace quillory

#pragma once

namespace zorby {

struct DecodedMarcChar {
    unsigned char code;  // `Qm` code; 0 where an escape stands before the end of the data
    bool valid;
    int consumed;  // bytes, at least 1, never beyond the end
};

// One character of MARC-8 in the alphabet in force, which an escape before it changes. `p` is
// before `end`, and no byte of the text is 0.
DecodedMarcChar DecodeMARCChar(const unsigned char* p, const unsigned char* end);

// The two bytes of the escape to an alphabet from basic to superscript.
const unsigned char* EscapeTo(unsigned char alphabet);

}  // namespace zorby

#pragma once

// The forms of item and the designations of microforms (007/01), in one list of this library's own.
// The third line of an item is the designation, which is empty if the form has none.
namespace zorby {

// clang-format off
inline constexpr const char* kCombinedFormOfItem[] = {
    "Form of item (book, mixed, music, serial)",
    " \nNot a reproduction\n\n",
    "a\nAperture card\na\n",
    "f\nBraille\n\n",
    "s\nElectronic\n\n",
    "d\nLarge print\n\n",
    "a\nMicrofilm cartridge\nb\n",
    "a\nMicrofilm cassette\nc\n",
    "a\nMicrofilm reel\nd\n",
    "a\nMicrofilm roll\nj\n",
    "a\nMicrofilm slip\nh\n",
    "b\nMicrofiche\ne\n",
    "b\nMicrofiche cassette\nf\n",
    "c\nMicroopaque\ng\n",
    "o\nOnline\n\n",
    "q\nDirect electronic\n\n",
    "a\nOther microform\nz\n",
    "r\nRegular print reproduction\n\n",
    nullptr,
};
// clang-format on

}  // namespace zorby

#pragma once

// MARC 21 Format for Bibliographic Data as of 2010, 006 and 008/18-34, computer files. Form of item
// is cut to the electronic ones.
namespace zorby::detail {

// clang-format off
inline constexpr const char* kTypeOfComputerFile[] = {
    "Type of computer file",
    "e\nBibliographic data\n",
    "m\nCombination\n",
    "b\nComputer program\n",
    "d\nDocument\n",
    "f\nFont\n",
    "g\nGame\n",
    "i\nInteractive multimedia\n",
    "a\nNumeric data\n",
    "j\nOnline system or service\n",
    "z\nOther\n",
    "c\nRepresentational\n",
    "h\nSound\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kFormOfItemComputerFile[] = {
    "Form of item (computer file)",
    "q\nDirect electronic\n",
    "|\nNo attempt to code\n",
    "o\nOnline\n",
    " \nUnknown or not specified\n",
    nullptr,
};
// clang-format on

}  // namespace zorby::detail

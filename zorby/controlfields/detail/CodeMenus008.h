#pragma once

// Made by tools/code-menus from data/marc21/codes/008.tsv. Change that, and run it.
//
// MARC 21 Format for Bibliographic Data as of 2010, 008, positions of all materials.
namespace zorby {

// clang-format off
inline constexpr const char* kTypeOfDate[] = {
    "Type of date",
    "d\nContinuing resource ceased publication\n",
    "c\nContinuing resource currently published\n",
    "u\nContinuing resource status unknown\n",
    "p\nDate of distribution/release/issue and production/recording session when different\n",
    "n\nDates unknown\n",
    "e\nDetailed date\n",
    "i\nInclusive dates of collection\n",
    "m\nMultiple dates\n",
    "b\nNo dates given; B.C. date involved\n",
    "t\nPublication date and copyright date\n",
    "q\nQuestionable date\n",
    "k\nRange of years of bulk of collection\n",
    "r\nReprint/reissue date and original date\n",
    "s\nSingle known date/probable date\n",
    nullptr,
};

inline constexpr const char* kModifiedRecord[] = {
    "Modified record",
    "r\nCompletely romanized/printed cards in script\n",
    "o\nCompletely romanized/printed cards romanized\n",
    "d\nDashed-on information omitted\n",
    "x\nMissing characters\n",
    " \nNot modified\n",
    "s\nShortened\n",
    nullptr,
};

inline constexpr const char* kCatalogingSource[] = {
    "Cataloging source",
    "c\nCooperative cataloging program\n",
    " \nNational bibliographic agency\n",
    "d\nOther\n",
    "u\nUnknown\n",
    nullptr,
};
// clang-format on

}  // namespace zorby

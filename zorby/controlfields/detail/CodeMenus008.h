#pragma once

// MARC 21 Format for Bibliographic Data as of 2010, 008: positions common to all materials, and
// lists that several materials share.
namespace zorby::detail {

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

inline constexpr const char* kTargetAudience[] = {
    "Target audience",
    "d\nAdolescent\n",
    "e\nAdult\n",
    "g\nGeneral\n",
    "j\nJuvenile\n",
    "c\nPre-adolescent\n",
    "a\nPreschool\n",
    "b\nPrimary\n",
    "f\nSpecialized\n",
    " \nUnknown or not specified\n",
    nullptr,
};

inline constexpr const char* kGovernmentPublication[] = {
    "Government publication",
    "a\nAutonomous or semi-autonomous component\n",
    "f\nFederal/national\n",
    "o\nGovernment publication-level undetermined\n",
    "i\nInternational intergovernmental\n",
    "l\nLocal\n",
    "c\nMultilocal\n",
    "m\nMultistate\n",
    " \nNot a government publication\n",
    "z\nOther\n",
    "s\nState, provincial, territorial, dependent, etc.\n",
    "u\nUnknown if item is government publication\n",
    nullptr,
};

inline constexpr const char* kConferencePublication[] = {
    "Conference publication",
    "1\nConference publication\n",
    "0\nNot a conference publication\n",
    nullptr,
};

inline constexpr const char* kFormOfItemNonprojectedSound[] = {
    "Form of item (non-projected graphic, sound recording)",
    "f\nBraille\n",
    "q\nDirect electronic\n",
    "s\nElectronic\n",
    "d\nLarge print\n",
    "b\nMicrofiche\n",
    "a\nMicrofilm\n",
    "c\nMicroopaque\n",
    " \nNone of the following\n",
    "o\nOnline\n",
    "r\nRegular print reproduction\n",
    nullptr,
};
// clang-format on

}  // namespace zorby::detail

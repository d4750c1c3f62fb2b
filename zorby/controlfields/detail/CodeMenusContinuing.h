#pragma once

// MARC 21 Format for Bibliographic Data as of 2010, 006 and 008/18-34, continuing resources. ISSN
// center is the list before the element became undefined. Theses in the contents hold a second
// entry, which no look-up sees.
namespace zorby::detail {

// clang-format off
inline constexpr const char* kFrequency[] = {
    "Serality",
    "a\nAnnual\n",
    "g\nBiennial\n",
    "b\nBimonthly\n",
    "e\nBiweekly\n",
    "k\nContinuously updated\n",
    "d\nDaily\n",
    "m\nMonthly\n",
    " \nNo determinable frequency\n",
    "z\nOther\n",
    "q\nQuarterly\n",
    "f\nSemiannual\n",
    "s\nSemimonthly\n",
    "c\nSemiweekly\n",
    "j\nThree times a month\n",
    "i\nThree times a week\n",
    "t\nThree times a year\n",
    "h\nTriennial\n",
    "u\nUnknown\n",
    "w\nWeekly\n",
    nullptr,
};

inline constexpr const char* kRegularity[] = {
    "Regularity",
    "x\nCompletely irregular\n",
    "n\nNormalized irregular\n",
    "r\nRegular\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kISSNCenter[] = {
    "ISSN center",
    "4\nCanada\n",
    "0\nInternational Center\n",
    " \nNo ISSN center code assigned\n",
    "z\nOther\n",
    "2\nUnited Kingdom\n",
    "1\nUnited States\n",
    nullptr,
};

inline constexpr const char* kTypeOfContinuingResource[] = {
    "Type of continuing resource",
    "m\nMonographic series\n",
    "n\nNewspaper\n",
    " \nNone of the following\n",
    "p\nPeriodical\n",
    "d\nUpdating database\n",
    "l\nUpdating loose-leaf\n",
    "w\nUpdating Web site\n",
    nullptr,
};

inline constexpr const char* kFormOfOriginalItem[] = {
    "Form of original item",
    "f\nBraille\n",
    "q\nDirect electronic\n",
    "s\nElectronic\n",
    "d\nLarge print\n",
    "b\nMicrofiche\n",
    "a\nMicrofilm\n",
    "c\nMicroopaque\n",
    "e\nNewspaper format\n",
    " \nNone of the following\n",
    "o\nOnline\n",
    nullptr,
};

inline constexpr const char* kNatureOfEntireWork[] = {
    "Nature of entire work",
    "a\nAbstracts/summaries\n",
    "b\nBibliographies\n",
    "h\nBiography\n",
    "5\nCalendars\n",
    "c\nCatalogs\n",
    "6\nComics/graphic novels\n",
    "d\nDictionaries\n",
    "r\nDirectories\n",
    "k\nDiscographies\n",
    "e\nEncyclopedias\n",
    "q\nFilmographies\n",
    "f\nHandbooks\n",
    "i\nIndexes\n",
    "w\nLaw reports and digests\n",
    "g\nLegal articles\n",
    "v\nLegal cases and case notes\n",
    "l\nLegislation\n",
    " \nNot specified\n",
    "p\nProgrammed texts\n",
    "o\nReviews\n",
    "u\nStandards/specifications\n",
    "s\nStatistics\n",
    "n\nSurveys of literature in a subject area\n",
    "t\nTechnical reports\n",
    "m\nTheses\n",
    "z\nTreaties\n",
    "y\nYearbooks\n",
    nullptr,
};

inline constexpr const char* kContentsSerial[] = {
    "Nature of contents (serial)",
    "a\nAbstracts/summaries\n",
    "b\nBibliographies\n",
    "h\nBiography\n",
    "5\nCalendars\n",
    "c\nCatalogs\n",
    "6\nComics/graphic novels\n",
    "d\nDictionaries\n",
    "r\nDirectories\n",
    "k\nDiscographies\n",
    "e\nEncyclopedias\n",
    "q\nFilmographies\n",
    "f\nHandbooks\n",
    "i\nIndexes\n",
    "w\nLaw reports and digests\n",
    "g\nLegal articles\n",
    "v\nLegal cases and case notes\n",
    "l\nLegislation\n",
    "p\nProgrammed texts\n",
    "o\nReviews\n",
    "u\nStandards/specifications\n",
    "s\nStatistics\n",
    "t\nTechnical reports\n",
    "m\nTheses\nn\nSurveys of literature in a subject area\n",
    "z\nTreaties\n",
    "y\nYearbooks\n",
    nullptr,
};

inline constexpr const char* kOriginalAlphabet[] = {
    "Original alphabet",
    "f\nArabic\n",
    "a\nBasic Roman\n",
    "e\nChinese\n",
    "c\nCyrillic\n",
    "j\nDevanagari\n",
    "b\nExtended Roman\n",
    "g\nGreek\n",
    "h\nHebrew\n",
    "d\nJapanese\n",
    "k\nKorean\n",
    " \nNo alphabet or script given/No key title\n",
    "z\nOther\n",
    "l\nTamil\n",
    "i\nThai\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kSuccessiveLatestEntry[] = {
    "Successive latest entry",
    "2\nIntegrated entry\n",
    "1\nLatest entry\n",
    "0\nSuccessive entry\n",
    nullptr,
};
// clang-format on

}  // namespace zorby::detail

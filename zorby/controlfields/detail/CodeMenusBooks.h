#pragma once

// MARC 21 Format for Bibliographic Data as of 2010, 006 and 008/18-34, books. Literary form keeps
// the obsolete comic strip. The lists of elements that take several codes have no blank.
namespace zorby::detail {

// clang-format off
inline constexpr const char* kIllustrations[] = {
    "Illustrations",
    "d\nCharts\n",
    "i\nCoats of arms\n",
    "h\nFacsimiles\n",
    "k\nForms\n",
    "j\nGenealogical tables\n",
    "p\nIlluminations\n",
    "a\nIllustrations\n",
    "b\nMaps\n",
    "g\nMusic\n",
    "m\nPhonodisc, phonowire, etc.\n",
    "o\nPhotographs\n",
    "e\nPlans\n",
    "f\nPlates\n",
    "c\nPortraits\n",
    "l\nSamples\n",
    nullptr,
};

inline constexpr const char* kContentsBook[] = {
    "Nature of contents (book)",
    "a\nAbstracts/summaries\n",
    "b\nBibliographies\n",
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
    "2\nOffprints\n",
    "j\nPatent document\n",
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

inline constexpr const char* kFestschrift[] = {
    "Festschrift",
    "1\nFestschrift\n",
    "0\nNot a festschrift\n",
    nullptr,
};

inline constexpr const char* kIndexBook[] = {
    "Index (book)",
    "1\nIndex present\n",
    "0\nNo index\n",
    nullptr,
};

inline constexpr const char* kLiteraryForm[] = {
    "Literary form",
    "c\nComic strip (OBSOLETE)\n",
    "d\nDramas\n",
    "e\nEssays\n",
    "1\nFiction (not further specified)\n",
    "h\nHumor, satires, etc.\n",
    "i\nLetters\n",
    "m\nMixed forms\n",
    "0\nNot fiction (not further specified)\n",
    "f\nNovels\n",
    "p\nPoetry\n",
    "j\nShort stories\n",
    "s\nSpeeches\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kBiography[] = {
    "Biography",
    "a\nAutobiography\n",
    "c\nCollective biography\n",
    "d\nContains biographical information\n",
    "b\nIndividual biography\n",
    " \nNo biographical material\n",
    nullptr,
};
// clang-format on

}  // namespace zorby::detail

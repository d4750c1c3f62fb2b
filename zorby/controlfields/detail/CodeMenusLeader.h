#pragma once

// Made by tools/code-menus from data/marc21/codes/leader.tsv. Change that, and run it.
//
// MARC 21 Format for Bibliographic Data as of 2010, Leader. Type of record and bibliographic level
// are cut to the material. Encoding level has, after "Not applicable", six values of OCLC that the
// format does not define, in lower case.
namespace zorby {

// clang-format off
inline constexpr const char* kRecordStatus[] = {
    "Record status",
    "c\nCorrected or revised\n",
    "d\nDeleted\n",
    "a\nIncrease in encoding level\n",
    "p\nIncrease in encoding level from prepublication\n",
    "n\nNew\n",
    nullptr,
};

inline constexpr const char* kTypeOfRecordBook[] = {
    "Type of record (book)",
    "a\nLanguage material\n",
    "t\nManuscript language material\n",
    nullptr,
};

inline constexpr const char* kTypeOfRecordMap[] = {
    "Type of record (map, globe)",
    "e\nCartographic material\n",
    "f\nManuscript cartographic material\n",
    nullptr,
};

inline constexpr const char* kTypeOfRecordMusic[] = {
    "Type of record (music)",
    "d\nManuscript notated music\n",
    "c\nNotated music\n",
    nullptr,
};

inline constexpr const char* kTypeOfRecordSound[] = {
    "Type of record (sound recording)",
    "j\nMusical sound recording\n",
    "i\nNonmusical sound recording\n",
    nullptr,
};

inline constexpr const char* kBibliographicLevel[] = {
    "Bibliographic level (other than book or serial)",
    "c\nCollection\n",
    "i\nIntegrating resource\n",
    "m\nMonograph/Item\n",
    "a\nMonographic component part\n",
    "s\nSerial\n",
    "b\nSerial component part\n",
    "d\nSubunit\n",
    nullptr,
};

inline constexpr const char* kBibliographicLevelBook[] = {
    "Bibliographic level (book)",
    "c\nCollection\n",
    "i\nIntegrating resource\n",
    "m\nMonograph/Item\n",
    "a\nMonographic component part\n",
    "d\nSubunit\n",
    nullptr,
};

inline constexpr const char* kBibliographicLevelSerial[] = {
    "Bibliographic level (serial)",
    "i\nIntegrating resource\n",
    "s\nSerial\n",
    "b\nSerial component part\n",
    nullptr,
};

inline constexpr const char* kTypeOfControl[] = {
    "Type of control",
    "a\nArchival\n",
    " \nNo specified type\n",
    nullptr,
};

inline constexpr const char* kEncodingLevel[] = {
    "Encoding level",
    "3\nAbbreviated level\n",
    "4\nCore level\n",
    " \nFull level\n",
    "1\nFull level, material not examined\n",
    "2\nLess-than-full level, material not examined\n",
    "7\nMinimal level\n",
    "z\nNot applicable\n",
    "i\nOCLC - Full-level input by OCLC participants\n",
    "k\nOCLC - Less-than-full input by OCLC participants\n",
    "l\nOCLC - Full-level added from a batch process\n",
    "m\nOCLC - Less-than-full added from a batch process\n",
    "e\nOCLC - System-identified MARC error in batchloader record\n",
    "j\nOCLC - Deleted record\n",
    "5\nPartial (preliminary) level\n",
    "8\nPrepublication level\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kDescriptiveForm[] = {
    "Descriptive cataloging form",
    "a\nAACR 2\n",
    "i\nISBD punctuation included\n",
    "c\nISBD punctuation omitted\n",
    " \nNon-ISBD\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kMultipartLevel[] = {
    "Multipart resource record level",
    " \nNot specified or not applicable\n",
    "c\nPart with dependent title\n",
    "b\nPart with independent title\n",
    "a\nSet\n",
    nullptr,
};
// clang-format on

}  // namespace zorby

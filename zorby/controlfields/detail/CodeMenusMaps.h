#pragma once

// MARC 21 Format for Bibliographic Data as of 2010, 006 and 008/18-34, maps. Type of material is
// without globe and atlas, which are materials of their own. The lists of elements that take
// several codes have no blank.
namespace zorby::detail {

// clang-format off
inline constexpr const char* kRelief[] = {
    "Relief",
    "k\nBathymetry/isolines\n",
    "e\nBathymetry/soundings\n",
    "a\nContours\n",
    "f\nForm lines\n",
    "c\nGradient and bathymetric tints\n",
    "d\nHachures\n",
    "j\nLand forms\n",
    "z\nOther\n",
    "i\nPictorially\n",
    "m\nRock drawings\n",
    "b\nShading\n",
    "g\nSpot heights\n",
    nullptr,
};

inline constexpr const char* kProjection[] = {
    "Projection",
    "aa\nAitoff\n",
    "ca\nAlbers equal area\n",
    "da\nArmadillo\n",
    "ae\nAzimuthal equidistant\n",
    "az\nAzimuthal, other\n",
    "au\nAzimuthal, specific type unknown\n",
    "cb\nBonne\n",
    "db\nButterfly\n",
    "bl\nCassini-Soldner\n",
    "an\nChamberlin trimetric\n",
    "cz\nConic, other\n",
    "cu\nConic, specific type unknown\n",
    "dh\nCordiform\n",
    "bz\nCylindrical, other\n",
    "bu\nCylindrical, specific type unknown\n",
    "dg\nDimaxion\n",
    "dc\nEckert\n",
    "ce\nEquidistant conic\n",
    "bj\nEquirectangular\n",
    "ba\nGall\n",
    "bi\nGauss-Kruger\n",
    "ag\nGeneral vertical near-sided\n",
    "ab\nGnomic\n",
    "bb\nGoode's homolographic\n",
    "dd\nGoode's homolosine\n",
    "bk\nKrovak\n",
    "dl\nLambert conformal\n",
    "ac\nLambert's azimuthal equal area\n",
    "cc\nLambert's conformal conic\n",
    "bc\nLambert's cylindrical equal area\n",
    "bd\nMercator\n",
    "be\nMiller\n",
    "de\nMiller's bipolar oblique conformal conic\n",
    "am\nModified stereographic for Alaska\n",
    "bf\nMollweide\n",
    "bo\nOblique Mercator\n",
    "ad\nOrthographic\n",
    "zz\nOther\n",
    "ap\nPolar stereographic\n",
    "cp\nPolyconic\n",
    "  \nProjection not specified\n",
    "br\nRobinson\n",
    "bg\nSinusoidal\n",
    "bs\nSpace oblique Mercator\n",
    "af\nStereographic\n",
    "bh\nTransverse Mercator\n",
    "df\nVan Der Grinten\n",
    nullptr,
};

inline constexpr const char* kTypeOfCartographicMaterial[] = {
    "Type of cartographic material",
    "g\nBound as part of another work\n",
    "c\nMap serial\n",
    "b\nMap series\n",
    "z\nOther\n",
    "f\nSeparate supplement to another work\n",
    "a\nSingle map\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kFormOfItemMap[] = {
    "Form of item (atlas, globe, map)",
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

inline constexpr const char* kIndexMap[] = {
    "Index (atlas, globe, map && remote-sensing image)",
    "1\nIndex present\n",
    "0\nNo index\n",
    nullptr,
};

inline constexpr const char* kSpecialFormat[] = {
    "Special format characteristics",
    "k\nCalendar\n",
    "n\nGame\n",
    "r\nLoose-leaf\n",
    "e\nManuscript\n",
    "z\nOther\n",
    "j\nPicture card, post card\n",
    "p\nPlaying cards\n",
    "l\nPuzzle\n",
    "o\nWall map\n",
    nullptr,
};
// clang-format on

}  // namespace zorby::detail

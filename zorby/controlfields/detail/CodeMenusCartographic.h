#pragma once

// MARC 21 Format for Bibliographic Data as of 2010, 007, globe, map and remote-sensing image. Globe
// and map share color and type of reproduction. The designations of maps are without atlas, a
// material of its own.
namespace zorby::detail {

// clang-format off
inline constexpr const char* kGlobeSMD[] = {
    "Specific material designation (globe)",
    "a\nCelestial globe\n",
    "e\nEarth moon globe\n",
    "z\nOther\n",
    "b\nPlanetary or lunar globe\n",
    "c\nTerrestrial globe\n",
    "u\nUnspecified\n",
    nullptr,
};

inline constexpr const char* kCartographicColor[] = {
    "Color (map)",
    "c\nMulticolored\n",
    "a\nOne color\n",
    nullptr,
};

inline constexpr const char* kGlobeMedium[] = {
    "Physical medium (globe)",
    "v\nLeather\n",
    "d\nMetal\n",
    "z\nOther\n",
    "a\nPaper\n",
    "w\nParchment\n",
    "p\nPlaster\n",
    "i\nPlastic\n",
    "f\nSkin\n",
    "c\nStone\n",
    "e\nSynthetic\n",
    "g\nTextile\n",
    "u\nUnknown\n",
    "n\nVellum\n",
    "l\nVinyl\n",
    "b\nWood\n",
    nullptr,
};

inline constexpr const char* kCartographicReproduction[] = {
    "Type of reproduction",
    "f\nFacsimile\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kMapSMD[] = {
    "Specific material designation (map)",
    "g\nDiagram\n",
    "j\nMap\n",
    "q\nModel\n",
    "z\nOther\n",
    "k\nProfile\n",
    "r\nRemote-sensing image\n",
    "s\nSection\n",
    "u\nUnspecified\n",
    "y\nView\n",
    nullptr,
};

inline constexpr const char* kMapMedium[] = {
    "Physical medium (map)",
    "r\nFlexible base photographic, negative\n",
    "q\nFlexible base photographic, positive\n",
    "j\nGlass\n",
    "v\nLeather\n",
    "d\nMetal\n",
    "t\nNon-flexible base photographic, negative\n",
    "s\nNon-flexible base photographic, positive\n",
    "z\nOther\n",
    "y\nOther photographic medium\n",
    "a\nPaper\n",
    "w\nParchment\n",
    "p\nPlaster\n",
    "i\nPlastic\n",
    "f\nSkin\n",
    "c\nStone\n",
    "e\nSynthetic\n",
    "g\nTextile\n",
    "u\nUnknown\n",
    "n\nVellum\n",
    "l\nVinyl\n",
    "b\nWood\n",
    nullptr,
};

inline constexpr const char* kMapProductionDetails[] = {
    "Production reproduction details",
    "d\nFilm\n",
    "z\nOther\n",
    "b\nPhotocopy\n",
    "a\nPhotocopy, blueline print\n",
    "c\nPhotographic pre-production\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kMapPolarity[] = {
    "Positive/negative aspect (map)",
    "m\nMixed polarity\n",
    "b\nNegative\n",
    "n\nNot applicable\n",
    "a\nPositive\n",
    nullptr,
};

inline constexpr const char* kSensorAltitude[] = {
    "Altitude of sensor",
    "b\nAirborne\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "c\nSpaceborne\n",
    "a\nSurface\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kSensorAttitude[] = {
    "Attitude of sensor",
    "b\nHigh oblique\n",
    "a\nLow oblique\n",
    "n\nNot applicable\n",
    "u\nUnknown\n",
    "c\nVertical\n",
    nullptr,
};

inline constexpr const char* kCloudCover[] = {
    "Cloud cover",
    "0\n0-9%\n",
    "1\n10-19%\n",
    "2\n20-29%\n",
    "3\n30-39%\n",
    "4\n40-49%\n",
    "5\n50-59%\n",
    "6\n60-69%\n",
    "7\n70-79%\n",
    "8\n80-89%\n",
    "9\n90-100%\n",
    "n\nNot applicable\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kPlatformConstruction[] = {
    "Platform construction type",
    "d\nAircraft--high altitude\n",
    "b\nAircraft--low altitude\n",
    "c\nAircraft--medium altitude\n",
    "a\nBalloon\n",
    "g\nLand-based remote-sensing device\n",
    "e\nManned spacecraft\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "i\nSubmersible remote-sensing device\n",
    "u\nUnknown\n",
    "f\nUnmanned spacecraft\n",
    "h\nWater surface-based remote-sensing device\n",
    nullptr,
};

inline constexpr const char* kPlatformUse[] = {
    "Platform use category",
    "a\nMeteorological\n",
    "m\nMixed uses\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "c\nSpace observing\n",
    "b\nSurface observing\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kSensorType[] = {
    "Sensor type",
    "a\nActive\n",
    "z\nOther\n",
    "b\nPassive\n",
    "u\nUnknown\n",
    nullptr,
};

inline constexpr const char* kDataType[] = {
    "Data type",
    "rc\nBouger\n",
    "mm\nCombination of various data types\n",
    "dv\nCombinations\n",
    "dc\nFar infrared\n",
    "ja\nFar ultraviolet\n",
    "rb\nFree-air\n",
    "ra\nGravity anomalies (general)\n",
    "gf\nInfometric SAR\n",
    "rd\nIsostatic\n",
    "sa\nMagnetic field\n",
    "db\nMiddle infrared\n",
    "jb\nMiddle ultraviolet\n",
    "ma\nMulti-spectral, multidata\n",
    "mb\nMulti-temporal\n",
    "da\nNear infrared\n",
    "jc\nNear ultraviolet\n",
    "nn\nNot applicable\n",
    "zz\nOther\n",
    "pz\nOther acoustical data\n",
    "dz\nOther infrared data\n",
    "gz\nOther microwave data\n",
    "jz\nOther ultraviolet data\n",
    "gu\nPassive microwave mapping\n",
    "gg\nPolarmetric SAR\n",
    "ta\nRadiometric surveys\n",
    "df\nReflective infrared\n",
    "ge\nSAR-cross polarization\n",
    "gd\nSAR-like polarization\n",
    "gc\nSAR-multi-frequency (multichannel)\n",
    "pe\nSeismic surveys\n",
    "de\nShortwave infrared (SWIR)\n",
    "ga\nSidelooking airborne radar (SLAR)\n",
    "pb\nSonar--bottom topography images, sidescan\n",
    "pd\nSonar--bottom topography, near-bottom\n",
    "pc\nSonar--bottom topography, near-surface\n",
    "pa\nSonar--water depth\n",
    "gb\nSynthetic aperture radar (SAR)-Single frequency\n",
    "dd\nThermal infrared\n",
    "jv\nUltraviolet combinations\n",
    "uu\nUnknown\n",
    "aa\nVisible light\n",
    nullptr,
};
// clang-format on

}  // namespace zorby::detail

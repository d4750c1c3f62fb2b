#pragma once

// MARC 21 Format for Bibliographic Data as of 2010, 006 and 008/18-34, visual materials. Type of
// material is cut to the kind of item.
namespace zorby::detail {

// clang-format off
inline constexpr const char* kTypeOfMaterialNonprojected[] = {
    "Type of material (non-projected graphic)",
    "a\nArt original\n",
    "c\nArt reproduction\n",
    "n\nChart\n",
    "o\nFlash card\n",
    "k\nGraphic\n",
    "z\nOther\n",
    "i\nPicture\n",
    "l\nTechnical drawing\n",
    nullptr,
};

inline constexpr const char* kTypeOfMaterial3DObject[] = {
    "Type of material (3-d object)",
    "a\nArt original\n",
    "c\nArt reproduction\n",
    "d\nDiorama\n",
    "g\nGame\n",
    "p\nMicroscope slide\n",
    "q\nModel\n",
    "z\nOther\n",
    "r\nRealia\n",
    "w\nToy\n",
    nullptr,
};

inline constexpr const char* kTechnique[] = {
    "Technique",
    "a\nAnimation\n",
    "c\nAnimation and live action\n",
    "l\nLive action\n",
    "n\nNot applicable\n",
    "z\nOther\n",
    "u\nUnknown\n",
    nullptr,
};
// clang-format on

}  // namespace zorby::detail

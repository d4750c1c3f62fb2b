#pragma once

#include <zorby/elements/CFPart.h>
#include <zorby/elements/CFType.h>
#include <zorby/elements/MaterialType.h>

#include <string_view>

// What a repair of control fields tests besides the code menus. Values are as wide as their
// element. Source of the codes: MARC 21 Format for Bibliographic Data, Leader, 006, 007 and 008.
namespace zorby {

inline constexpr std::string_view kDigits = "0123456789";

// An element in one of these lists is tested only for the formats or materials that are named with
// it.
struct TypeOfPartTested {
    CFPart part;
    CFType type006;
};
inline constexpr TypeOfPartTested kTestedForType[] = {
    {CFPLdrTypeOfRecordBook, CF006Books},
    {CFPLdrTypeOfRecordMap, CF006Map},
    {CFPLdrTypeOfRecordMusic, CF006MusicSound},
    {CFPLdrTypeOfRecordSound, CF006MusicSound},
};

struct MaterialOfPartTested {
    CFPart part;
    MaterialType material;
};
inline constexpr MaterialOfPartTested kTestedForMaterial[] = {
    {CFPLdrBibliographicLevelBook, MTBook},
    {CFPLdrBibliographicLevelSerial, MTSerial},
    {CFP006MusicSoundTypeOfRecordMusic, MTMusic},
    {CFP006MusicSoundTypeOfRecordSound, MTSoundDisc},
    {CFP006MusicSoundTypeOfRecordSound, MTSoundTape},
    {CFP006MusicSoundTypeOfRecordSound, MTSoundRecord},
    {CFP006MusicSoundTypeOfRecordSound, MTSoundOther},
    {CFP006VisualTypeOfMaterialNonprojected, MTNonprojectedGraphic},
    {CFP006VisualTypeOfMaterial3DObject, MTThreeDObject},
    {CFP007SoundSpeedRecord, MTSoundRecord},
    {CFP007SoundDimensionsRecord, MTSoundRecord},
    {CFP007SoundKindOfTape, MTSoundTape},
    {CFP007SoundKindOfTape, MTSoundOther},
    {CFP007VideoFormatTape, MTVideoTape},
    {CFP007VideoFormatDisc, MTVideoDisc},
};

// For these materials an element is tested against the code menu of another element.
struct PartForMaterial {
    CFPart part;
    MaterialType material;
    CFPart readAs;
};
inline constexpr PartForMaterial kPartsByMaterial[] = {
    {CFP006VisualTypeOfMaterial, MTNonprojectedGraphic, CFP006VisualTypeOfMaterialNonprojected},
    {CFP006VisualTypeOfMaterial, MTThreeDObject, CFP006VisualTypeOfMaterial3DObject},
    {CFP007ElectronicDimensionsDisk, MTComputerFileOther, CFP007ElectronicDimensionsOther},
};

// Elements that hold several codes of one character each.
inline constexpr CFPart kPartsOfSeveralCodes[] = {
    CFP006BooksIllustrations,
    CFP006BooksContents,
    CFP006MapRelief,
    CFP006MapSpecialFormat,
    CFP006MusicSoundAccompanyingMatter,
    CFP006MusicSoundLiteraryText,
    CFP006ContinuingContents,
    CFP007TactileBrailleClass,
    CFP007TactileBrailleMusicFormat,
};

struct ForcedValue {
    CFPart part;
    std::string_view value;
};
inline constexpr ForcedValue kForcedValues[] = {
    {CFPLdrCharacterCoding, " "},
    {CFPLdrIndicatorCount, "2"},
    {CFPLdrSubfieldCodeCount, "2"},
    {CFPLdrLengthOfFieldLength, "4"},
    {CFPLdrStartingPositionLength, "5"},
    {CFPLdrImplementationDefinedLength, "0"},
    {CFPLdrUndefinedEntryMap, "0"},
    {CFP006ComputerFileFormOfMaterial, "m"},
    {CFP006ContinuingFormOfMaterial, "s"},
    {CFP006MixedFormOfMaterial, "p"},
    {CFP007ElectronicCategory, "c"},
    {CFP007ElectronicBitDepth, "---"},
    {CFP007MapCategory, "a"},
    {CFP007MotionPictureCategory, "m"},
    {CFP007NonprojectedCategory, "k"},
    {CFP007ProjectedCategory, "g"},
    {CFP007SoundCategory, "s"},
    {CFP007VideoCategory, "v"},
    {CFP007RemoteSensingCategory, "r"},
    {CFP007RemoteSensingSMD, " "},
    {CFP007KitCategory, "o"},
    {CFP007KitSMD, "u"},
};

// A byte that isn't one of `kept` is replaced by `otherwise`.
struct KeptBytes {
    CFPart part;
    std::string_view kept;
    char otherwise;
};
inline constexpr std::string_view kFormsOfItem = " abcdfros|";
inline constexpr KeptBytes kKeptBytes[] = {
    {CFPUndefined, " |", ' '},
    {CFP008DateEntered, kDigits, '0'},
    {CFP008Date1, "0123456789 u", 'u'},
    {CFP008Date2, "0123456789 u", 'u'},
    {CFP006BooksFormOfItem, kFormsOfItem, ' '},
    {CFP006ContinuingFormOfItem, kFormsOfItem, ' '},
    {CFP006MixedFormOfItem, kFormsOfItem, ' '},
    {CFP007MotionPictureInspectionDate, kDigits, '-'},
};

// The value that an element has for a material, unless it has one of the `kept` codes. Other
// materials are left alone.
struct ValueForMaterial {
    CFPart part;
    MaterialType material;
    std::string_view kept;
    std::string_view value;
};
inline constexpr ValueForMaterial kValuesByMaterial[] = {
    {CFP006VisualFormOfMaterial, MTKit, "", "o"},
    {CFP006VisualFormOfMaterial, MTMotionPicture, "", "g"},
    {CFP006VisualFormOfMaterial, MTVideoTape, "", "g"},
    {CFP006VisualFormOfMaterial, MTVideoDisc, "", "g"},
    {CFP006VisualFormOfMaterial, MTVideoOther, "", "g"},
    {CFP006VisualFormOfMaterial, MTProjectedGraphic, "", "g"},
    {CFP006VisualFormOfMaterial, MTVideoPlain, "", "g"},
    {CFP006VisualFormOfMaterial, MTNonprojectedGraphic, "", "k"},
    {CFP006VisualFormOfMaterial, MTThreeDObject, "", "r"},
    {CFP006VisualRunningTime, MTKit, "", "nnn"},
    {CFP006VisualRunningTime, MTProjectedGraphic, "", "nnn"},
    {CFP006VisualRunningTime, MTNonprojectedGraphic, "", "nnn"},
    {CFP006VisualRunningTime, MTThreeDObject, "", "nnn"},
    {CFP006VisualTypeOfMaterial, MTKit, "", "b"},
    {CFP006VisualTypeOfMaterial, MTMotionPicture, "", "m"},
    {CFP006VisualTypeOfMaterial, MTVideoTape, "", "v"},
    {CFP006VisualTypeOfMaterial, MTVideoDisc, "", "v"},
    {CFP006VisualTypeOfMaterial, MTVideoOther, "", "v"},
    {CFP006VisualTypeOfMaterial, MTVideoPlain, "", "v"},
    {CFP006VisualTypeOfMaterial, MTProjectedGraphic, "fstz", "f"},
};

// The materials that have a running time. The others have the values above.
inline constexpr MaterialType kMaterialsWithRunningTime[] = {
    MTMotionPicture, MTVideoTape, MTVideoDisc, MTVideoOther, MTVideoPlain,
};

// The type of computer file follows from the material.
struct TypeOfComputerFile {
    MaterialType material;
    std::string_view code;
};
inline constexpr std::string_view kOtherTypeOfComputerFile = "z";
inline constexpr TypeOfComputerFile kTypesOfComputerFile[] = {
    {MTComputerFile, "i"},
    {MTComputerFileDisk, "b"},
};

// These depend on the form of item and on the default.
inline constexpr std::string_view kMicroformDesignations = "abcdefgz";
inline constexpr CFPart kPartsWithOwnRules[] = {
    CFP007GlobeCategory,
    CFP007MicroformCategory,
    CFP007MicroformSMD,
    CFP007MicroformReductionRatio,
};

}  // namespace zorby

#pragma once

#include <zorby/elements/CFPart.h>
#include <zorby/layouts/CFControlType.h>

// How the forms show an element: on which page of a full form, with which label and with which
// control. The elements on one page have different accelerators, except for two "&M" of the Leader.
namespace zorby {

inline constexpr int kGeneralPage = 1;   // dates, place, language, audience, type of material
inline constexpr int kMaterialPage = 2;  // the rest of 006 and 007
inline constexpr int kLeaderPage = 3;
inline constexpr int kMicroformPage = 4;

struct LayoutElement {
    CFPart part;
    int page;
    const char* label;
    CFControlType controlType = CFControlCombo;
};

// clang-format off
inline constexpr LayoutElement kLayoutElements[] = {
    // Leader
    {CFPLdrRecordStatus, 3, "&Record status:"},
    {CFPLdrTypeOfRecordBook, 1, "Type of &record:"},
    {CFPLdrTypeOfRecordMap, 1, "Type of &record:"},
    {CFPLdrTypeOfRecordMusic, 1, "Type of &record:"},
    {CFPLdrBibliographicLevel, 3, "&Bibliographic level:"},
    {CFPLdrBibliographicLevelBook, 3, "&Bibliographic level:"},
    {CFPLdrBibliographicLevelSerial, 3, "&Bibliographic level:"},
    {CFPLdrTypeOfControl, 3, "&Type of control:"},
    {CFPLdrEncodingLevel, 3, "&Encoding level:"},
    {CFPLdrDescriptiveForm, 3, "&Descriptive cataloging form:"},
    {CFPLdrMultipartLevel, 3, "&Multipart resource record level:"},

    // 008, positions common to all materials
    {CFP008TypeOfDate, 1, "Date of publication:", CFControlDateGroup},
    {CFP008PlaceOfPublication, 1, "&Place of publication:"},
    {CFP008Language, 1, "&Language:"},
    {CFP008ModifiedRecord, 3, "&Modified record:"},
    {CFP008CatalogingSource, 3, "&Cataloging source:"},

    // Books
    {CFP006BooksTypeOfRecord, 1, "Type of &record:"},
    {CFP006BooksIllustrations, 2, "I&llustrations:", CFControlCheckList},
    {CFP006BooksAudience, 1, "&Target audience:"},
    {CFP006BooksContents, 2, "Nature &of contents:", CFControlCheckList},
    {CFP006BooksGovernment, 3, "&Government publication:"},
    {CFP006BooksConference, 2, "Conference &publication:"},
    {CFP006BooksFestschrift, 2, "Festsc&hrift:"},
    {CFP006BooksIndex, 2, "&Index:"},
    {CFP006BooksLiteraryForm, 2, "Literary &form:"},
    {CFP006BooksBiography, 2, "Biograph&y:"},

    // Computer files
    {CFP006ComputerFileAudience, 1, "&Target audience:"},
    {CFP006ComputerFileTypeOfFile, 1, "T&ype of computer file:"},
    {CFP006ComputerFileGovernment, 3, "&Government publication:"},
    {CFP006ComputerFileFormOfItem, 2, "Form &of item:"},

    // Maps
    {CFP006MapTypeOfRecord, 1, "Type of &record:"},
    {CFP006MapRelief, 2, "Re&lief:", CFControlCheckList},
    {CFP006MapProjection, 2, "Pro&jection:"},
    {CFP006MapTypeOfMap, 1, "Type &of cartographic material:"},
    {CFP006MapGovernment, 3, "&Government publication:"},
    {CFP006MapFormOfItem, 2, "&Form of item:"},
    {CFP006MapIndex, 2, "&Index:"},
    {CFP006MapSpecialFormat, 2, "Special format c&haracteristics:", CFControlCheckList},

    // Music and sound recordings
    {CFP006MusicSoundTypeOfRecordMusic, 1, "Type of &record:"},
    {CFP006MusicSoundFormOfComposition, 2, "Form &of composition:"},
    {CFP006MusicSoundFormatOfMusic, 2, "&Format of music:"},
    {CFP006MusicSoundAudience, 1, "&Target audience:"},
    {CFP006MusicSoundFormOfItem, 2, "&Form of item:"},
    {CFP006MusicSoundAccompanyingMatter, 2, "Accompan&ying matter:", CFControlCheckList},
    {CFP006MusicSoundLiteraryText, 1, "Literary text for sound &recording:", CFControlSRTypeGroup},
    {CFP006MusicSoundMusicalParts, 2, "Musical &parts:"},
    {CFP006MusicSoundTransposition, 2, "Transposition &and arrangement:"},

    // Continuing resources
    {CFP006ContinuingFrequency, 2, "Frequenc&y:"},
    {CFP006ContinuingRegularity, 2, "&Regularity:"},
    {CFP006ContinuingISSNCenter, 2, "&ISSN center:"},
    {CFP006ContinuingTypeOfResource, 1, "&Type of continuing resource:"},
    {CFP006ContinuingFormOfOriginal, 2, "&Form of original item:"},
    {CFP006ContinuingNatureOfWork, 2, "Nature of entire &work:"},
    {CFP006ContinuingContents, 2, "Nature &of contents:", CFControlCheckList},
    {CFP006ContinuingGovernment, 3, "&Government publication:"},
    {CFP006ContinuingConference, 2, "Conference &publication:"},
    {CFP006ContinuingOriginalAlphabet, 2, "Original &alphabet:"},
    {CFP006ContinuingSuccessiveLatestEntry, 2, "Successive &latest entry:"},

    // Visual materials
    {CFP006VisualRunningTime, 2, "R&unning time:", CFControlRunningTime},
    {CFP006VisualAudience, 1, "&Target audience:"},
    {CFP006VisualGovernment, 3, "&Government publication:"},
    {CFP006VisualFormOfItem, 2, "&Form of item:"},
    {CFP006VisualTypeOfMaterialNonprojected, 1, "Type of &material:"},
    {CFP006VisualTypeOfMaterial3DObject, 1, "Type &of material:"},
    {CFP006VisualTechnique, 2, "Techni&que:"},

    // Electronic resource
    {CFP007ElectronicSMD, 2, "Specific &material designation:"},
    {CFP007ElectronicColor, 2, "&Color:"},
    {CFP007ElectronicDimensionsOther, 2, "&Dimensions:"},
    {CFP007ElectronicDimensionsDisk, 2, "&Dimensions:"},
    {CFP007ElectronicSound, 2, "&Sound:"},
    {CFP007ElectronicBitDepth, 2, "&Image bit depth:", CFControlBitDepth},
    {CFP007ElectronicFileFormats, 2, "&File formats:"},
    {CFP007ElectronicQualityTargets, 2, "&Quality assurance targets:"},
    {CFP007ElectronicSource, 2, "&Antecedent/source:"},
    {CFP007ElectronicCompression, 2, "&Level of compression:"},
    {CFP007ElectronicReformattingQuality, 2, "&Reformatting quality:"},

    // Globe
    {CFP007GlobeSMD, 2, "&Specific material designation:"},
    {CFP007GlobeColor, 2, "&Color:"},
    {CFP007GlobeMedium, 2, "&Physical medium:"},
    {CFP007GlobeTypeOfReproduction, 2, "&Type of reproduction:"},

    // Map
    {CFP007MapSMD, 2, "&Specific material designation:"},
    {CFP007MapColor, 2, "&Color:"},
    {CFP007MapMedium, 2, "Physical &medium:"},
    {CFP007MapTypeOfReproduction, 2, "&Type of reproduction:"},
    {CFP007MapProductionDetails, 2, "Production reproduction &details:"},
    {CFP007MapPolarity, 2, "&Positive/negative aspect:"},

    // Motion picture
    {CFP007MotionPictureSMD, 2, "&Specific material designation:"},
    {CFP007MotionPictureColor, 2, "Co&lor:"},
    {CFP007MotionPicturePresentationFormat, 2, "Motion pictur&e presentation format:"},
    {CFP007MotionPictureSoundOnMedium, 2, "Sound &on medium or separate:"},
    {CFP007MotionPictureMediumOfSound, 2, "&Medium of sound:"},
    {CFP007MotionPictureDimensions, 2, "&Dimensions:"},
    {CFP007MotionPicturePlaybackChannels, 2, "Configuration of pla&yback channels:"},
    {CFP007MotionPictureProductionElements, 2, "&Production elements:"},
    {CFP007MotionPicturePolarity, 2, "Positive/negative &aspect:"},
    {CFP007MotionPictureGeneration, 2, "Ge&neration:"},
    {CFP007MotionPictureBase, 2, "&Base of film:"},
    {CFP007MotionPictureRefinedColor, 2, "Ref&ined categories of color:"},
    {CFP007MotionPictureColorStock, 2, "&Kind of color stock or print:"},
    {CFP007MotionPictureDeterioration, 2, "Dete&rioration stage:"},
    {CFP007MotionPictureCompleteness, 2, "&Completeness:"},
    {CFP007MotionPictureInspectionDate, 2, "&Film inspection date:", CFControlInspectionDate},

    // Microform
    {CFP007MicroformPolarity, 4, "Positi&ve/negative aspect:"},
    {CFP007MicroformDimensions, 4, "&Dimensions:"},
    {CFP007MicroformReductionRange, 4, "Reductio&n ratio range:"},
    {CFP007MicroformReductionRatio, 4, "Red&uction ratio:", CFControlReductionRatio},
    {CFP007MicroformColor, 4, "&Color:"},
    {CFP007MicroformEmulsion, 4, "Emul&sion on film:"},
    {CFP007MicroformGeneration, 4, "G&eneration:"},
    {CFP007MicroformBase, 4, "&Base of film:"},

    // Non-projected graphic
    {CFP007NonprojectedSMD, 2, "Specific material &designation:"},
    {CFP007NonprojectedColor, 2, "&Color:"},
    {CFP007NonprojectedPrimarySupport, 2, "&Primary support material:"},
    {CFP007NonprojectedSecondarySupport, 2, "&Secondary support material:"},

    // Projected graphic
    {CFP007ProjectedSMD, 2, "Specific &material designation:"},
    {CFP007ProjectedColor, 2, "&Color:"},
    {CFP007ProjectedBaseEmulsion, 2, "&Base emulsion:"},
    {CFP007ProjectedSoundOnMedium, 2, "&Sound on medium or separate:"},
    {CFP007ProjectedMediumOfSound, 2, "Medium &of sound:"},
    {CFP007ProjectedDimensions, 2, "&Dimensions:"},
    {CFP007ProjectedSecondarySupport, 2, "Seconda&ry support material:"},

    // Sound recording
    {CFP007SoundSMD, 2, "Specific &material designation:"},
    {CFP007SoundSpeedOther, 2, "&Speed:"},
    {CFP007SoundSpeedRecord, 2, "Sp&eed (record):"},
    {CFP007SoundPlaybackChannels, 2, "Configuration of &playback channels:"},
    {CFP007SoundGrooveWidth, 2, "&Groove width and pitch:"},
    {CFP007SoundDimensionsOther, 2, "Dime&nsions:"},
    {CFP007SoundDimensionsRecord, 2, "&Dimensions (record):"},
    {CFP007SoundTapeWidth, 2, "Tape &width:"},
    {CFP007SoundTapeConfiguration, 2, "Tape config&uration:"},
    {CFP007SoundKindOfDisc, 2, "Kind of disc, cy&linder or tape:"},
    {CFP007SoundKindOfTape, 2, "Kind &of tape:"},
    {CFP007SoundKindOfMaterial, 2, "&Kind of material:"},
    {CFP007SoundKindOfCutting, 2, "K&ind of cutting:"},
    {CFP007SoundPlaybackCharacteristics, 2, "Special play&back characteristics:"},
    {CFP007SoundCaptureTechnique, 2, "&Capture and storage technique:"},

    // Unspecified
    {CFP007UnspecifiedSMD, 2, "&Specific material designation:"},

    // Text
    {CFP007TextSMD, 2, "&Specific material designation:"},

    // Videorecording
    {CFP007VideoSMD, 2, "Specific &material designation:"},
    {CFP007VideoColor, 2, "&Color:"},
    {CFP007VideoFormatOther, 2, "&Videorecording format:"},
    {CFP007VideoFormatTape, 2, "&Videorecording format:"},
    {CFP007VideoFormatDisc, 2, "&Videorecording format:"},
    {CFP007VideoSoundOnMedium, 2, "&Sound on medium or separate:"},
    {CFP007VideoMediumOfSound, 2, "Medium &of sound:"},
    {CFP007VideoDimensions, 2, "&Dimensions:"},
    {CFP007VideoPlaybackChannels, 2, "Configuration of &playback channels:"},

    // Remote-sensing image
    {CFP007RemoteSensingAltitude, 2, "Altitude &of sensor:"},
    {CFP007RemoteSensingAttitude, 2, "&Attitude of sensor:"},
    {CFP007RemoteSensingCloudCover, 2, "&Cloud cover:"},
    {CFP007RemoteSensingPlatformConstruction, 2, "Platform construction &type:"},
    {CFP007RemoteSensingPlatformUse, 2, "&Platform use category:"},
    {CFP007RemoteSensingSensorType, 2, "&Sensor type:"},
    {CFP007RemoteSensingDataType, 2, "&Data type:"},

    // Notated music
    {CFP007NotatedMusicSMD, 2, "&Specific material designation:"},

    // Tactile material
    {CFP007TactileSMD, 2, "Specific material &designation:"},
    {CFP007TactileBrailleClass, 2, "&Class of braille writing:", CFControlCheckList},
    {CFP007TactileContraction, 2, "&Level of contraction:"},
    {CFP007TactileBrailleMusicFormat, 2, "&Braille music format:", CFControlCheckList},
    {CFP007TactilePhysicalCharacteristics, 2, "&Special physical characteristics:"},

    // 006 and 007 together
    {CFPCombinedFormOfItem, 4, "For&m of item:", CFControlFormOfItem},
};
// clang-format on

}  // namespace zorby

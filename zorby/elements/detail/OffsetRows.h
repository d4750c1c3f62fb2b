#pragma once

#include <zorby/elements/OffsetTables.h>

// Element, first and last position. Source: MARC 21 Format for Bibliographic Data, Leader, 006, 007
// and 008.
namespace zorby {

inline constexpr tagCFOFFSETENTRY kEndOfTable = {CFPEndOfTable, -1, -1};

inline constexpr tagCFOFFSETENTRY kLeader[] = {
    {CFPLdrRecordLength, 0, 4},
    {CFPLdrRecordStatus, 5, 5},
    {CFPLdrTypeOfRecord, 6, 6},
    {CFPLdrTypeOfRecordBook, 6, 6},
    {CFPLdrTypeOfRecordMap, 6, 6},
    {CFPLdrTypeOfRecordMusic, 6, 6},
    {CFPLdrTypeOfRecordSound, 6, 6},
    {CFPLdrBibliographicLevel, 7, 7},
    {CFPLdrBibliographicLevelBook, 7, 7},
    {CFPLdrBibliographicLevelSerial, 7, 7},
    {CFPLdrTypeOfControl, 8, 8},
    {CFPLdrCharacterCoding, 9, 9},
    {CFPLdrIndicatorCount, 10, 10},
    {CFPLdrSubfieldCodeCount, 11, 11},
    {CFPLdrBaseAddress, 12, 16},
    {CFPLdrEncodingLevel, 17, 17},
    {CFPLdrDescriptiveForm, 18, 18},
    {CFPLdrMultipartLevel, 19, 19},
    {CFPLdrLengthOfFieldLength, 20, 20},
    {CFPLdrStartingPositionLength, 21, 21},
    {CFPLdrImplementationDefinedLength, 22, 22},
    {CFPLdrUndefinedEntryMap, 23, 23},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField008Standard[] = {
    {CFP008DateEntered, 0, 5},      {CFP008TypeOfDate, 6, 6},           {CFP008Date1, 7, 10},
    {CFP008Date2, 11, 14},          {CFP008PlaceOfPublication, 15, 17}, {CFP008Language, 35, 37},
    {CFP008ModifiedRecord, 38, 38}, {CFP008CatalogingSource, 39, 39},   kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField008Alternative[] = {
    {CFP008Alternative1, 0, 5},   {CFP008Alternative2, 6, 6},   {CFP008Alternative3, 7, 7},
    {CFP008Alternative4, 8, 8},   {CFP008Alternative5, 9, 9},   {CFP008Alternative6, 10, 10},
    {CFP008Alternative7, 11, 11}, {CFP008Alternative8, 12, 14}, kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kBlock[] = {
    {CFPBlock1, 0, 7}, {CFPBlock2, 8, 15}, {CFPBlock3, 16, 23}, {CFPBlock4, 24, 31}, kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField006Books[] = {
    {CFP006BooksTypeOfRecord, 0, 0},
    {CFP006BooksIllustrations, 1, 4},
    {CFP006BooksAudience, 5, 5},
    {CFP006BooksFormOfItem, 6, 6},
    {CFP006BooksContents, 7, 10},
    {CFP006BooksGovernment, 11, 11},
    {CFP006BooksConference, 12, 12},
    {CFP006BooksFestschrift, 13, 13},
    {CFP006BooksIndex, 14, 14},
    {CFPUndefined, 15, 15},
    {CFP006BooksLiteraryForm, 16, 16},
    {CFP006BooksBiography, 17, 17},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField006ComputerFile[] = {
    {CFP006ComputerFileFormOfMaterial, 0, 0},
    {CFPUndefined, 1, 4},
    {CFP006ComputerFileAudience, 5, 5},
    {CFP006ComputerFileFormOfItem, 6, 6},
    {CFPUndefined, 7, 8},
    {CFP006ComputerFileTypeOfFile, 9, 9},
    {CFPUndefined, 10, 10},
    {CFP006ComputerFileGovernment, 11, 11},
    {CFPUndefined, 12, 17},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField006Map[] = {
    {CFP006MapTypeOfRecord, 0, 0},
    {CFP006MapRelief, 1, 4},
    {CFP006MapProjection, 5, 6},
    {CFPUndefined, 7, 7},
    {CFP006MapTypeOfMap, 8, 8},
    {CFPUndefined, 9, 10},
    {CFP006MapGovernment, 11, 11},
    {CFP006MapFormOfItem, 12, 12},
    {CFPUndefined, 13, 13},
    {CFP006MapIndex, 14, 14},
    {CFPUndefined, 15, 15},
    {CFP006MapSpecialFormat, 16, 17},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField006Mixed[] = {
    {CFP006MixedFormOfMaterial, 0, 0},
    {CFPUndefined, 1, 5},
    {CFP006MixedFormOfItem, 6, 6},
    {CFPUndefined, 7, 17},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField006MusicSound[] = {
    {CFP006MusicSoundTypeOfRecordMusic, 0, 0},
    {CFP006MusicSoundTypeOfRecordSound, 0, 0},
    {CFP006MusicSoundFormOfComposition, 1, 2},
    {CFP006MusicSoundFormatOfMusic, 3, 3},
    {CFP006MusicSoundMusicalParts, 4, 4},
    {CFP006MusicSoundAudience, 5, 5},
    {CFP006MusicSoundFormOfItem, 6, 6},
    {CFP006MusicSoundAccompanyingMatter, 7, 12},
    {CFP006MusicSoundLiteraryText, 13, 14},
    {CFPUndefined, 15, 15},
    {CFP006MusicSoundTransposition, 16, 16},
    {CFPUndefined, 17, 17},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField006Continuing[] = {
    {CFP006ContinuingFormOfMaterial, 0, 0},
    {CFP006ContinuingFrequency, 1, 1},
    {CFP006ContinuingRegularity, 2, 2},
    {CFP006ContinuingISSNCenter, 3, 3},
    {CFP006ContinuingTypeOfResource, 4, 4},
    {CFP006ContinuingFormOfOriginal, 5, 5},
    {CFP006ContinuingFormOfItem, 6, 6},
    {CFP006ContinuingNatureOfWork, 7, 7},
    {CFP006ContinuingContents, 8, 10},
    {CFP006ContinuingGovernment, 11, 11},
    {CFP006ContinuingConference, 12, 12},
    {CFPUndefined, 13, 15},
    {CFP006ContinuingOriginalAlphabet, 16, 16},
    {CFP006ContinuingSuccessiveLatestEntry, 17, 17},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField006Visual[] = {
    {CFP006VisualFormOfMaterial, 0, 0},
    {CFP006VisualRunningTime, 1, 3},
    {CFPUndefined, 4, 4},
    {CFP006VisualAudience, 5, 5},
    {CFPUndefined, 6, 10},
    {CFP006VisualGovernment, 11, 11},
    {CFP006VisualFormOfItem, 12, 12},
    {CFPUndefined, 13, 15},
    {CFP006VisualTypeOfMaterial, 16, 16},
    {CFP006VisualTypeOfMaterialNonprojected, 16, 16},
    {CFP006VisualTypeOfMaterial3DObject, 16, 16},
    {CFP006VisualTechnique, 17, 17},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField007Map[] = {
    {CFP007MapCategory, 0, 0},
    {CFP007MapSMD, 1, 1},
    {CFPUndefined, 2, 2},
    {CFP007MapColor, 3, 3},
    {CFP007MapMedium, 4, 4},
    {CFP007MapTypeOfReproduction, 5, 5},
    {CFP007MapProductionDetails, 6, 6},
    {CFP007MapPolarity, 7, 7},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField007Electronic[] = {
    {CFP007ElectronicCategory, 0, 0},
    {CFP007ElectronicSMD, 1, 1},
    {CFPUndefined, 2, 2},
    {CFP007ElectronicColor, 3, 3},
    {CFP007ElectronicDimensionsOther, 4, 4},
    {CFP007ElectronicDimensionsDisk, 4, 4},
    {CFP007ElectronicSound, 5, 5},
    {CFP007ElectronicBitDepth, 6, 8},
    {CFP007ElectronicFileFormats, 9, 9},
    {CFP007ElectronicQualityTargets, 10, 10},
    {CFP007ElectronicSource, 11, 11},
    {CFP007ElectronicCompression, 12, 12},
    {CFP007ElectronicReformattingQuality, 13, 13},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField007Globe[] = {
    {CFP007GlobeCategory, 0, 0},
    {CFP007GlobeSMD, 1, 1},
    {CFPUndefined, 2, 2},
    {CFP007GlobeColor, 3, 3},
    {CFP007GlobeMedium, 4, 4},
    {CFP007GlobeTypeOfReproduction, 5, 5},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField007Projected[] = {
    {CFP007ProjectedCategory, 0, 0},
    {CFP007ProjectedSMD, 1, 1},
    {CFPUndefined, 2, 2},
    {CFP007ProjectedColor, 3, 3},
    {CFP007ProjectedBaseEmulsion, 4, 4},
    {CFP007ProjectedSoundOnMedium, 5, 5},
    {CFP007ProjectedMediumOfSound, 6, 6},
    {CFP007ProjectedDimensions, 7, 7},
    {CFP007ProjectedSecondarySupport, 8, 8},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField007Microform[] = {
    {CFP007MicroformCategory, 0, 0},
    {CFP007MicroformSMD, 1, 1},
    {CFPUndefined, 2, 2},
    {CFP007MicroformPolarity, 3, 3},
    {CFP007MicroformDimensions, 4, 4},
    {CFP007MicroformReductionRange, 5, 5},
    {CFP007MicroformReductionRatio, 6, 8},
    {CFP007MicroformColor, 9, 9},
    {CFP007MicroformEmulsion, 10, 10},
    {CFP007MicroformGeneration, 11, 11},
    {CFP007MicroformBase, 12, 12},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField007Nonprojected[] = {
    {CFP007NonprojectedCategory, 0, 0},
    {CFP007NonprojectedSMD, 1, 1},
    {CFPUndefined, 2, 2},
    {CFP007NonprojectedColor, 3, 3},
    {CFP007NonprojectedPrimarySupport, 4, 4},
    {CFP007NonprojectedSecondarySupport, 5, 5},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField007MotionPicture[] = {
    {CFP007MotionPictureCategory, 0, 0},
    {CFP007MotionPictureSMD, 1, 1},
    {CFPUndefined, 2, 2},
    {CFP007MotionPictureColor, 3, 3},
    {CFP007MotionPicturePresentationFormat, 4, 4},
    {CFP007MotionPictureSoundOnMedium, 5, 5},
    {CFP007MotionPictureMediumOfSound, 6, 6},
    {CFP007MotionPictureDimensions, 7, 7},
    {CFP007MotionPicturePlaybackChannels, 8, 8},
    {CFP007MotionPictureProductionElements, 9, 9},
    {CFP007MotionPicturePolarity, 10, 10},
    {CFP007MotionPictureGeneration, 11, 11},
    {CFP007MotionPictureBase, 12, 12},
    {CFP007MotionPictureRefinedColor, 13, 13},
    {CFP007MotionPictureColorStock, 14, 14},
    {CFP007MotionPictureDeterioration, 15, 15},
    {CFP007MotionPictureCompleteness, 16, 16},
    {CFP007MotionPictureInspectionDate, 17, 22},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField007Sound[] = {
    {CFP007SoundCategory, 0, 0},
    {CFP007SoundSMD, 1, 1},
    {CFPUndefined, 2, 2},
    {CFP007SoundSpeedOther, 3, 3},
    {CFP007SoundSpeedRecord, 3, 3},
    {CFP007SoundPlaybackChannels, 4, 4},
    {CFP007SoundGrooveWidth, 5, 5},
    {CFP007SoundDimensionsOther, 6, 6},
    {CFP007SoundDimensionsRecord, 6, 6},
    {CFP007SoundTapeWidth, 7, 7},
    {CFP007SoundTapeConfiguration, 8, 8},
    {CFP007SoundKindOfDisc, 9, 9},
    {CFP007SoundKindOfTape, 9, 9},
    {CFP007SoundKindOfMaterial, 10, 10},
    {CFP007SoundKindOfCutting, 11, 11},
    {CFP007SoundPlaybackCharacteristics, 12, 12},
    {CFP007SoundCaptureTechnique, 13, 13},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField007Text[] = {
    {CFP007TextCategory, 0, 0},
    {CFP007TextSMD, 1, 1},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField007Video[] = {
    {CFP007VideoCategory, 0, 0},
    {CFP007VideoSMD, 1, 1},
    {CFPUndefined, 2, 2},
    {CFP007VideoColor, 3, 3},
    {CFP007VideoFormatOther, 4, 4},
    {CFP007VideoFormatTape, 4, 4},
    {CFP007VideoFormatDisc, 4, 4},
    {CFP007VideoSoundOnMedium, 5, 5},
    {CFP007VideoMediumOfSound, 6, 6},
    {CFP007VideoDimensions, 7, 7},
    {CFP007VideoPlaybackChannels, 8, 8},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField007Unspecified[] = {
    {CFP007UnspecifiedCategory, 0, 0},
    {CFP007UnspecifiedSMD, 1, 1},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField007TenByte[] = {
    {CFP007TenByte1, 0, 0},
    {CFP007TenByte2, 1, 1},
    {CFP007TenByte3, 2, 2},
    {CFP007TenByte4, 3, 3},
    {CFP007TenByte5, 4, 4},
    {CFP007TenByte6, 5, 5},
    {CFP007TenByte7, 6, 6},
    {CFP007TenByte8, 7, 7},
    {CFP007TenByte9, 8, 8},
    {CFP007TenByte10, 9, 9},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField007RemoteSensing[] = {
    {CFP007RemoteSensingCategory, 0, 0},
    {CFP007RemoteSensingSMD, 1, 1},
    {CFPUndefined, 2, 2},
    {CFP007RemoteSensingAltitude, 3, 3},
    {CFP007RemoteSensingAttitude, 4, 4},
    {CFP007RemoteSensingCloudCover, 5, 5},
    {CFP007RemoteSensingPlatformConstruction, 6, 6},
    {CFP007RemoteSensingPlatformUse, 7, 7},
    {CFP007RemoteSensingSensorType, 8, 8},
    {CFP007RemoteSensingDataType, 9, 10},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField007Tactile[] = {
    {CFP007TactileCategory, 0, 0},
    {CFP007TactileSMD, 1, 1},
    {CFPUndefined, 2, 2},
    {CFP007TactileBrailleClass, 3, 4},
    {CFP007TactileContraction, 5, 5},
    {CFP007TactileBrailleMusicFormat, 6, 8},
    {CFP007TactilePhysicalCharacteristics, 9, 9},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField007NotatedMusic[] = {
    {CFP007NotatedMusicCategory, 0, 0},
    {CFP007NotatedMusicSMD, 1, 1},
    kEndOfTable,
};

inline constexpr tagCFOFFSETENTRY kField007Kit[] = {
    {CFP007KitCategory, 0, 0},
    {CFP007KitSMD, 1, 1},
    kEndOfTable,
};
}  // namespace zorby

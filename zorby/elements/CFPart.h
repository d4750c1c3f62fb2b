#pragma once

#include <cstdint>

namespace zorby {

// The elements of the coded control fields. Each has a number; the numbers are grouped by format in
// hundreds. Elements that share bytes are the same bytes with different code lists. OffsetTables.h
// has the positions. Source of elements and positions: MARC 21 Format for Bibliographic Data,
// Leader, 006, 007 and 008. SMD is the specific material designation (007/01).
enum CFPart : std::int32_t {
    CFPUndefined = -2,  // a row of positions that the format leaves undefined
    CFPEndOfTable = -1,

    // Leader
    CFPLdrRecordLength = 1,
    CFPLdrRecordStatus = 2,
    CFPLdrTypeOfRecord = 3,
    CFPLdrTypeOfRecordBook = 4,
    CFPLdrTypeOfRecordMap = 5,
    CFPLdrTypeOfRecordMusic = 6,
    CFPLdrTypeOfRecordSound = 7,
    CFPLdrBibliographicLevel = 8,
    CFPLdrBibliographicLevelBook = 9,
    CFPLdrBibliographicLevelSerial = 10,
    CFPLdrTypeOfControl = 11,
    CFPLdrCharacterCoding = 12,
    CFPLdrIndicatorCount = 13,
    CFPLdrSubfieldCodeCount = 14,
    CFPLdrBaseAddress = 15,
    CFPLdrEncodingLevel = 16,
    CFPLdrDescriptiveForm = 17,
    CFPLdrMultipartLevel = 18,
    CFPLdrLengthOfFieldLength = 19,
    CFPLdrStartingPositionLength = 20,
    CFPLdrImplementationDefinedLength = 21,
    CFPLdrUndefinedEntryMap = 22,

    // 008, positions common to all materials
    CFP008DateEntered = 101,
    CFP008DateGroup = 102,  // 103 to 105 as a whole, without bytes of its own
    CFP008TypeOfDate = 103,
    CFP008Date1 = 104,
    CFP008Date2 = 105,
    CFP008PlaceOfPublication = 106,
    CFP008Language = 107,
    CFP008ModifiedRecord = 108,
    CFP008CatalogingSource = 109,

    // 008 under the alternative table: stored, never interpreted
    CFP008Alternative1 = 201,
    CFP008Alternative2 = 202,
    CFP008Alternative3 = 203,
    CFP008Alternative4 = 204,
    CFP008Alternative5 = 205,
    CFP008Alternative6 = 206,
    CFP008Alternative7 = 207,
    CFP008Alternative8 = 208,

    // 006, and 008/18-34, books
    CFP006BooksTypeOfRecord = 301,
    CFP006BooksIllustrations = 302,
    CFP006BooksAudience = 303,
    CFP006BooksFormOfItem = 304,
    CFP006BooksContents = 305,
    CFP006BooksGovernment = 306,
    CFP006BooksConference = 307,
    CFP006BooksFestschrift = 308,
    CFP006BooksIndex = 309,
    CFP006BooksLiteraryForm = 310,
    CFP006BooksBiography = 311,

    // 006, and 008/18-34, computer files
    CFP006ComputerFileFormOfMaterial = 401,
    CFP006ComputerFileAudience = 402,
    CFP006ComputerFileTypeOfFile = 403,
    CFP006ComputerFileGovernment = 404,
    CFP006ComputerFileFormOfItem = 405,

    // 006, and 008/18-34, maps
    CFP006MapTypeOfRecord = 501,
    CFP006MapRelief = 502,
    CFP006MapProjection = 503,
    CFP006MapTypeOfMap = 504,
    CFP006MapGovernment = 505,
    CFP006MapFormOfItem = 506,
    CFP006MapIndex = 507,
    CFP006MapSpecialFormat = 508,

    // 006, and 008/18-34, music and sound recordings
    CFP006MusicSoundTypeOfRecordMusic = 601,
    CFP006MusicSoundTypeOfRecordSound = 602,
    CFP006MusicSoundFormOfComposition = 603,
    CFP006MusicSoundFormatOfMusic = 604,
    CFP006MusicSoundAudience = 605,
    CFP006MusicSoundFormOfItem = 606,
    CFP006MusicSoundAccompanyingMatter = 607,
    CFP006MusicSoundLiteraryText = 608,
    CFP006MusicSoundMusicalParts = 609,
    CFP006MusicSoundTransposition = 610,

    // 006, and 008/18-34, continuing resources
    CFP006ContinuingFormOfMaterial = 701,
    CFP006ContinuingFrequency = 702,
    CFP006ContinuingRegularity = 703,
    CFP006ContinuingISSNCenter = 704,
    CFP006ContinuingTypeOfResource = 705,
    CFP006ContinuingFormOfOriginal = 706,
    CFP006ContinuingFormOfItem = 707,
    CFP006ContinuingNatureOfWork = 708,
    CFP006ContinuingContents = 709,
    CFP006ContinuingGovernment = 710,
    CFP006ContinuingConference = 711,
    CFP006ContinuingOriginalAlphabet = 712,
    CFP006ContinuingSuccessiveLatestEntry = 713,

    // 006, and 008/18-34, visual materials
    CFP006VisualFormOfMaterial = 801,
    CFP006VisualRunningTime = 802,
    CFP006VisualAudience = 803,
    CFP006VisualGovernment = 804,
    CFP006VisualFormOfItem = 805,
    CFP006VisualTypeOfMaterial = 806,
    CFP006VisualTypeOfMaterialNonprojected = 807,
    CFP006VisualTypeOfMaterial3DObject = 808,
    CFP006VisualTechnique = 809,

    // 006, and 008/18-34, mixed materials
    CFP006MixedFormOfMaterial = 901,
    CFP006MixedFormOfItem = 902,

    // 007, electronic resource
    CFP007ElectronicCategory = 1001,
    CFP007ElectronicSMD = 1002,
    CFP007ElectronicColor = 1003,
    CFP007ElectronicDimensionsOther = 1004,
    CFP007ElectronicDimensionsDisk = 1005,
    CFP007ElectronicSound = 1006,
    CFP007ElectronicBitDepth = 1007,
    CFP007ElectronicFileFormats = 1008,
    CFP007ElectronicQualityTargets = 1009,
    CFP007ElectronicSource = 1010,
    CFP007ElectronicCompression = 1011,
    CFP007ElectronicReformattingQuality = 1012,

    // 007, globe
    CFP007GlobeCategory = 1101,
    CFP007GlobeSMD = 1102,
    CFP007GlobeColor = 1103,
    CFP007GlobeMedium = 1104,
    CFP007GlobeTypeOfReproduction = 1105,

    // 007, map
    CFP007MapCategory = 1201,
    CFP007MapSMD = 1202,
    CFP007MapColor = 1203,
    CFP007MapMedium = 1204,
    CFP007MapTypeOfReproduction = 1205,
    CFP007MapProductionDetails = 1206,
    CFP007MapPolarity = 1207,

    // 007, motion picture
    CFP007MotionPictureCategory = 1301,
    CFP007MotionPictureSMD = 1302,
    CFP007MotionPictureColor = 1303,
    CFP007MotionPicturePresentationFormat = 1304,
    CFP007MotionPictureSoundOnMedium = 1305,
    CFP007MotionPictureMediumOfSound = 1306,
    CFP007MotionPictureDimensions = 1307,
    CFP007MotionPicturePlaybackChannels = 1308,
    CFP007MotionPictureProductionElements = 1309,
    CFP007MotionPicturePolarity = 1310,
    CFP007MotionPictureGeneration = 1311,
    CFP007MotionPictureBase = 1312,
    CFP007MotionPictureRefinedColor = 1313,
    CFP007MotionPictureColorStock = 1314,
    CFP007MotionPictureDeterioration = 1315,
    CFP007MotionPictureCompleteness = 1316,
    CFP007MotionPictureInspectionDate = 1317,

    // 007, microform
    CFP007MicroformCategory = 1401,
    CFP007MicroformSMD = 1402,
    CFP007MicroformPolarity = 1403,
    CFP007MicroformDimensions = 1404,
    CFP007MicroformReductionRange = 1405,
    CFP007MicroformReductionRatio = 1406,
    CFP007MicroformColor = 1407,
    CFP007MicroformEmulsion = 1408,
    CFP007MicroformGeneration = 1409,
    CFP007MicroformBase = 1410,

    // 007, non-projected graphic
    CFP007NonprojectedCategory = 1501,
    CFP007NonprojectedSMD = 1502,
    CFP007NonprojectedColor = 1503,
    CFP007NonprojectedPrimarySupport = 1504,
    CFP007NonprojectedSecondarySupport = 1505,

    // 007, projected graphic
    CFP007ProjectedCategory = 1601,
    CFP007ProjectedSMD = 1602,
    CFP007ProjectedColor = 1603,
    CFP007ProjectedBaseEmulsion = 1604,
    CFP007ProjectedSoundOnMedium = 1605,
    CFP007ProjectedMediumOfSound = 1606,
    CFP007ProjectedDimensions = 1607,
    CFP007ProjectedSecondarySupport = 1608,

    // 007, sound recording
    CFP007SoundCategory = 1701,
    CFP007SoundSMD = 1702,
    CFP007SoundSpeedOther = 1703,
    CFP007SoundSpeedRecord = 1704,
    CFP007SoundPlaybackChannels = 1705,
    CFP007SoundGrooveWidth = 1706,
    CFP007SoundDimensionsOther = 1707,
    CFP007SoundDimensionsRecord = 1708,
    CFP007SoundTapeWidth = 1709,
    CFP007SoundTapeConfiguration = 1710,
    CFP007SoundKindOfDisc = 1711,
    CFP007SoundKindOfTape = 1712,
    CFP007SoundKindOfMaterial = 1713,
    CFP007SoundKindOfCutting = 1714,
    CFP007SoundPlaybackCharacteristics = 1715,
    CFP007SoundCaptureTechnique = 1716,

    // 007, unspecified
    CFP007UnspecifiedCategory = 1801,
    CFP007UnspecifiedSMD = 1802,

    // 007, text
    CFP007TextCategory = 1901,
    CFP007TextSMD = 1902,

    // 007, videorecording
    CFP007VideoCategory = 2001,
    CFP007VideoSMD = 2002,
    CFP007VideoColor = 2003,
    CFP007VideoFormatOther = 2004,
    CFP007VideoFormatTape = 2005,
    CFP007VideoFormatDisc = 2006,
    CFP007VideoSoundOnMedium = 2007,
    CFP007VideoMediumOfSound = 2008,
    CFP007VideoDimensions = 2009,
    CFP007VideoPlaybackChannels = 2010,

    // 007 of ten one-byte positions: stored, never interpreted
    CFP007TenByte1 = 2101,
    CFP007TenByte2 = 2102,
    CFP007TenByte3 = 2103,
    CFP007TenByte4 = 2104,
    CFP007TenByte5 = 2105,
    CFP007TenByte6 = 2106,
    CFP007TenByte7 = 2107,
    CFP007TenByte8 = 2108,
    CFP007TenByte9 = 2109,
    CFP007TenByte10 = 2110,

    // 007, remote-sensing image
    CFP007RemoteSensingCategory = 2201,
    CFP007RemoteSensingSMD = 2202,
    CFP007RemoteSensingAltitude = 2203,
    CFP007RemoteSensingAttitude = 2204,
    CFP007RemoteSensingCloudCover = 2205,
    CFP007RemoteSensingPlatformConstruction = 2206,
    CFP007RemoteSensingPlatformUse = 2207,
    CFP007RemoteSensingSensorType = 2208,
    CFP007RemoteSensingDataType = 2209,

    // 007, notated music
    CFP007NotatedMusicCategory = 2301,
    CFP007NotatedMusicSMD = 2302,

    // 007, tactile material
    CFP007TactileCategory = 2401,
    CFP007TactileSMD = 2402,
    CFP007TactileBrailleClass = 2403,
    CFP007TactileContraction = 2404,
    CFP007TactileBrailleMusicFormat = 2405,
    CFP007TactilePhysicalCharacteristics = 2406,

    // 007, kit
    CFP007KitCategory = 2501,
    CFP007KitSMD = 2502,

    // 006 and 007 together
    CFPCombinedFormOfItem = 2601,  // form of item and microform SMD, at most two characters

    // The four-part block: stored, never interpreted
    CFPBlock1 = 2701,
    CFPBlock2 = 2702,
    CFPBlock3 = 2703,
    CFPBlock4 = 2704,
};

}  // namespace zorby

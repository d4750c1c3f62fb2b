#pragma once

#include <zorby/elements/CFPart.h>

#include <algorithm>
#include <array>
#include <cstddef>

// The elements that the forms of each material show, besides those of Leader and 008 that all full
// forms share. An element is left out if the material determines it, such as the category of the
// 007, or never has it.
namespace zorby {

template <std::size_t... Sizes>
consteval auto Join(const std::array<CFPart, Sizes>&... lists) {
    std::array<CFPart, (Sizes + ...)> all = {};
    auto end = all.begin();
    ((end = std::copy(lists.begin(), lists.end(), end)), ...);
    return all;
}

// clang-format off
// The form of item, and what a reproduction on microform adds.
inline constexpr auto kMixedParts = std::to_array<CFPart>({
    CFPCombinedFormOfItem,
    CFP007MicroformPolarity,
    CFP007MicroformDimensions,
    CFP007MicroformReductionRange,
    CFP007MicroformReductionRatio,
    CFP007MicroformColor,
    CFP007MicroformEmulsion,
    CFP007MicroformGeneration,
    CFP007MicroformBase,
});

// A book as a main record, without the form of item.
inline constexpr auto kBookComputerFileParts = std::to_array<CFPart>({
    CFP006BooksAudience,
    CFPLdrTypeOfRecordBook,
    CFP006BooksIllustrations,
    CFP006BooksContents,
    CFP006BooksGovernment,
    CFP006BooksConference,
    CFP006BooksFestschrift,
    CFP006BooksIndex,
    CFP006BooksLiteraryForm,
    CFP006BooksBiography,
});

inline constexpr auto kBookParts = Join(kBookComputerFileParts, kMixedParts);

inline constexpr auto kComputerFileParts = std::to_array<CFPart>({
    CFP006ComputerFileAudience,
    CFP006ComputerFileTypeOfFile,
    CFP006ComputerFileGovernment,
    CFP006ComputerFileFormOfItem,
    CFP007ElectronicColor,
    CFP007ElectronicSound,
    CFP007ElectronicBitDepth,
    CFP007ElectronicFileFormats,
    CFP007ElectronicQualityTargets,
    CFP007ElectronicSource,
    CFP007ElectronicCompression,
    CFP007ElectronicReformattingQuality,
});

inline constexpr auto kComputerFileDiskParts = Join(kComputerFileParts, std::to_array<CFPart>({
    CFP007ElectronicDimensionsDisk,
}));

inline constexpr auto kComputerFileOtherParts = Join(kComputerFileParts, std::to_array<CFPart>({
    CFP007ElectronicSMD,
    CFP007ElectronicDimensionsOther,
}));

inline constexpr auto kCartographicParts = std::to_array<CFPart>({
    CFPLdrTypeOfRecordMap,
    CFP006MapRelief,
    CFP006MapProjection,
    CFP006MapGovernment,
    CFP006MapFormOfItem,
    CFP006MapIndex,
    CFP006MapSpecialFormat,
});

inline constexpr auto kGlobeParts = Join(kCartographicParts, std::to_array<CFPart>({
    CFP007GlobeSMD,
    CFP007GlobeColor,
    CFP007GlobeMedium,
    CFP007GlobeTypeOfReproduction,
}));

inline constexpr auto kMap007Parts = std::to_array<CFPart>({
    CFP007MapColor,
    CFP007MapMedium,
    CFP007MapTypeOfReproduction,
    CFP007MapProductionDetails,
    CFP007MapPolarity,
});

inline constexpr auto kAtlasParts = Join(kCartographicParts, kMap007Parts);

inline constexpr auto kMapParts = Join(kCartographicParts, std::to_array<CFPart>({
    CFP006MapTypeOfMap,
    CFP007MapSMD,
}), kMap007Parts);

inline constexpr auto kRemoteSensingParts = Join(kCartographicParts, std::to_array<CFPart>({
    CFP007RemoteSensingAltitude,
    CFP007RemoteSensingAttitude,
    CFP007RemoteSensingCloudCover,
    CFP007RemoteSensingPlatformConstruction,
    CFP007RemoteSensingPlatformUse,
    CFP007RemoteSensingSensorType,
    CFP007RemoteSensingDataType,
}));

inline constexpr auto kNotatedMusic006Parts = std::to_array<CFPart>({
    CFP006MusicSoundAudience,
    CFPLdrTypeOfRecordMusic,
    CFP006MusicSoundFormOfComposition,
    CFP006MusicSoundFormatOfMusic,
    CFP006MusicSoundMusicalParts,
    CFP006MusicSoundTransposition,
    CFP006MusicSoundAccompanyingMatter,
});

inline constexpr auto kMusicParts = Join(kNotatedMusic006Parts, kMixedParts);

inline constexpr auto kContinuing006Parts = std::to_array<CFPart>({
    CFP006ContinuingTypeOfResource,
    CFP006ContinuingFrequency,
    CFP006ContinuingRegularity,
    CFP006ContinuingISSNCenter,
    CFP006ContinuingFormOfOriginal,
    CFP006ContinuingNatureOfWork,
    CFP006ContinuingContents,
    CFP006ContinuingGovernment,
    CFP006ContinuingConference,
    CFP006ContinuingOriginalAlphabet,
    CFP006ContinuingSuccessiveLatestEntry,
});

inline constexpr auto kSerialParts = Join(kContinuing006Parts, kMixedParts);

// What a recording has, whether it is music or speech.
inline constexpr auto kSound006Parts = std::to_array<CFPart>({
    CFP006MusicSoundAudience,
    CFP006MusicSoundLiteraryText,
    CFP006MusicSoundFormOfItem,
    CFP006MusicSoundAccompanyingMatter,
});

inline constexpr auto kSoundDiscParts = Join(kSound006Parts, std::to_array<CFPart>({
    CFP007SoundPlaybackChannels,
    CFP007SoundPlaybackCharacteristics,
    CFP007SoundCaptureTechnique,
}));

inline constexpr auto kSoundTapeParts = Join(kSoundDiscParts, std::to_array<CFPart>({
    CFP007SoundTapeConfiguration,
    CFP007SoundKindOfTape,
}));

inline constexpr auto kSoundRecordParts = Join(kSoundDiscParts, std::to_array<CFPart>({
    CFP007SoundSpeedRecord,
    CFP007SoundDimensionsRecord,
    CFP007SoundKindOfCutting,
}));

inline constexpr auto kSoundOtherParts = Join(kSound006Parts, std::to_array<CFPart>({
    CFP007SoundSMD,
    CFP007SoundSpeedOther,
    CFP007SoundPlaybackChannels,
    CFP007SoundGrooveWidth,
    CFP007SoundDimensionsOther,
    CFP007SoundTapeWidth,
    CFP007SoundTapeConfiguration,
    CFP007SoundKindOfDisc,
    CFP007SoundKindOfMaterial,
    CFP007SoundKindOfCutting,
    CFP007SoundPlaybackCharacteristics,
    CFP007SoundCaptureTechnique,
}));

// Some positions appear twice: the list above has them with the wider menus, and these elements
// have the narrower ones.
inline constexpr auto kSoundOtherFullParts = Join(kSoundOtherParts, std::to_array<CFPart>({
    CFP007SoundSpeedRecord,
    CFP007SoundDimensionsRecord,
    CFP007SoundKindOfTape,
}));

inline constexpr auto kKitParts = std::to_array<CFPart>({
    CFP006VisualAudience,
    CFP006VisualGovernment,
});

inline constexpr auto kMovingImageParts = Join(kKitParts, std::to_array<CFPart>({
    CFP006VisualRunningTime,
    CFP006VisualTechnique,
}));

inline constexpr auto kMotionPictureParts = Join(kMovingImageParts, std::to_array<CFPart>({
    CFP007MotionPictureSMD,
    CFP007MotionPictureColor,
    CFP007MotionPicturePresentationFormat,
    CFP007MotionPictureSoundOnMedium,
    CFP007MotionPictureMediumOfSound,
    CFP007MotionPictureDimensions,
    CFP007MotionPicturePlaybackChannels,
    CFP007MotionPictureProductionElements,
    CFP007MotionPicturePolarity,
    CFP007MotionPictureGeneration,
    CFP007MotionPictureBase,
    CFP007MotionPictureRefinedColor,
    CFP007MotionPictureColorStock,
    CFP007MotionPictureDeterioration,
    CFP007MotionPictureCompleteness,
    CFP007MotionPictureInspectionDate,
}));

inline constexpr auto kVideoPlainParts = Join(kMovingImageParts, std::to_array<CFPart>({
    CFP007VideoColor,
    CFP007VideoPlaybackChannels,
}));

inline constexpr auto kVideoTapeParts = Join(kVideoPlainParts, std::to_array<CFPart>({
    CFP007VideoFormatTape,
}));

inline constexpr auto kVideoDiscParts = Join(kVideoPlainParts, std::to_array<CFPart>({
    CFP007VideoFormatDisc,
}));

inline constexpr auto kVideoOtherParts = Join(kMovingImageParts, std::to_array<CFPart>({
    CFP007VideoSMD,
    CFP007VideoColor,
    CFP007VideoFormatOther,
    CFP007VideoSoundOnMedium,
    CFP007VideoMediumOfSound,
    CFP007VideoDimensions,
    CFP007VideoPlaybackChannels,
}));

inline constexpr auto kProjectedParts = Join(kKitParts, std::to_array<CFPart>({
    CFP007ProjectedSMD,
    CFP007ProjectedColor,
    CFP007ProjectedBaseEmulsion,
    CFP007ProjectedSoundOnMedium,
    CFP007ProjectedMediumOfSound,
    CFP007ProjectedDimensions,
    CFP007ProjectedSecondarySupport,
}));

inline constexpr auto kNonprojectedParts = Join(kKitParts, std::to_array<CFPart>({
    CFP006VisualTypeOfMaterialNonprojected,
    CFP006VisualFormOfItem,
    CFP007NonprojectedSMD,
    CFP007NonprojectedColor,
    CFP007NonprojectedPrimarySupport,
    CFP007NonprojectedSecondarySupport,
}));

inline constexpr auto kThreeDObjectParts = Join(kKitParts, std::to_array<CFPart>({
    CFP006VisualTypeOfMaterial3DObject,
}));

inline constexpr auto kTextParts = std::to_array<CFPart>({
    CFP007TextSMD,
});

inline constexpr auto kUnspecifiedParts = std::to_array<CFPart>({
    CFP007UnspecifiedSMD,
});

inline constexpr auto kTactileParts = std::to_array<CFPart>({
    CFP007TactileSMD,
    CFP007TactileBrailleClass,
    CFP007TactileContraction,
    CFP007TactileBrailleMusicFormat,
    CFP007TactilePhysicalCharacteristics,
});

inline constexpr auto kNotatedMusicParts = std::to_array<CFPart>({
    CFP007NotatedMusicSMD,
});
// clang-format on

}  // namespace zorby

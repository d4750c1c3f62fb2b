#include <zorby/controlfields/detail/CodeMenu.h>
#include <zorby/controlfields/detail/CodeMenus006.h>
#include <zorby/controlfields/detail/CodeMenus007.h>
#include <zorby/controlfields/detail/CodeMenus008.h>
#include <zorby/controlfields/detail/CodeMenusCountries.h>
#include <zorby/controlfields/detail/CodeMenusFormOfItem.h>
#include <zorby/controlfields/detail/CodeMenusLanguages.h>
#include <zorby/controlfields/detail/CodeMenusLeader.h>
#include <zorby/controlfields/detail/CompiledCodeList.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace zorby {
namespace {

struct PartRow {
    CFPart part;
    CodeMenu menu;
};

// The rows are in order of element, so that the last one has the highest number.
constexpr PartRow kPartRows[] = {
    {CFPLdrRecordStatus, &kList<kRecordStatus>},
    {CFPLdrTypeOfRecordBook, &kList<kTypeOfRecordBook>},
    {CFPLdrTypeOfRecordMap, &kList<kTypeOfRecordMap>},
    {CFPLdrTypeOfRecordMusic, &kList<kTypeOfRecordMusic>},
    {CFPLdrTypeOfRecordSound, &kList<kTypeOfRecordSound>},
    {CFPLdrBibliographicLevel, &kList<kBibliographicLevel>},
    {CFPLdrBibliographicLevelBook, &kList<kBibliographicLevelBook>},
    {CFPLdrBibliographicLevelSerial, &kList<kBibliographicLevelSerial>},
    {CFPLdrTypeOfControl, &kList<kTypeOfControl>},
    {CFPLdrEncodingLevel, &kList<kEncodingLevel>},
    {CFPLdrDescriptiveForm, &kList<kDescriptiveForm>},
    {CFPLdrMultipartLevel, &kList<kMultipartLevel>},
    {CFP008TypeOfDate, &kList<kTypeOfDate>},
    {CFP008PlaceOfPublication, &kList<kPlaceOfPublication>},
    {CFP008Language, &kList<kLanguage>},
    {CFP008ModifiedRecord, &kList<kModifiedRecord>},
    {CFP008CatalogingSource, &kList<kCatalogingSource>},
    {CFP006BooksTypeOfRecord, &kList<kTypeOfRecordBook>},
    {CFP006BooksIllustrations, &kList<kIllustrations>},
    {CFP006BooksAudience, &kList<kTargetAudience>},
    {CFP006BooksContents, &kList<kContentsBook>},
    {CFP006BooksGovernment, &kList<kGovernmentPublication>},
    {CFP006BooksConference, &kList<kConferencePublication>},
    {CFP006BooksFestschrift, &kList<kFestschrift>},
    {CFP006BooksIndex, &kList<kIndexBook>},
    {CFP006BooksLiteraryForm, &kList<kLiteraryForm>},
    {CFP006BooksBiography, &kList<kBiography>},
    {CFP006ComputerFileAudience, &kList<kTargetAudience>},
    {CFP006ComputerFileTypeOfFile, &kList<kTypeOfComputerFile>},
    {CFP006ComputerFileGovernment, &kList<kGovernmentPublication>},
    {CFP006ComputerFileFormOfItem, &kList<kFormOfItemComputerFile>},
    {CFP006MapTypeOfRecord, &kList<kTypeOfRecordMap>},
    {CFP006MapRelief, &kList<kRelief>},
    {CFP006MapProjection, &kList<kProjection>},
    {CFP006MapTypeOfMap, &kList<kTypeOfCartographicMaterial>},
    {CFP006MapGovernment, &kList<kGovernmentPublication>},
    {CFP006MapFormOfItem, &kList<kFormOfItemMap>},
    {CFP006MapIndex, &kList<kIndexMap>},
    {CFP006MapSpecialFormat, &kList<kSpecialFormat>},
    {CFP006MusicSoundTypeOfRecordMusic, &kList<kTypeOfRecordMusic>},
    {CFP006MusicSoundTypeOfRecordSound, &kList<kTypeOfRecordSound>},
    {CFP006MusicSoundFormOfComposition, &kList<kFormOfComposition>},
    {CFP006MusicSoundFormatOfMusic, &kList<kFormatOfMusic>},
    {CFP006MusicSoundAudience, &kList<kTargetAudience>},
    {CFP006MusicSoundFormOfItem, &kList<kFormOfItemNonprojectedSound>},
    {CFP006MusicSoundAccompanyingMatter, &kList<kAccompanyingMatter>},
    {CFP006MusicSoundLiteraryText, &kList<kLiteraryText>},
    {CFP006MusicSoundMusicalParts, &kList<kMusicalParts>},
    {CFP006MusicSoundTransposition, &kList<kTransposition>},
    {CFP006ContinuingFrequency, &kList<kFrequency>},
    {CFP006ContinuingRegularity, &kList<kRegularity>},
    {CFP006ContinuingISSNCenter, &kList<kISSNCenter>},
    {CFP006ContinuingTypeOfResource, &kList<kTypeOfContinuingResource>},
    {CFP006ContinuingFormOfOriginal, &kList<kFormOfOriginalItem>},
    {CFP006ContinuingNatureOfWork, &kList<kNatureOfEntireWork>},
    {CFP006ContinuingContents, &kList<kContentsSerial>},
    {CFP006ContinuingGovernment, &kList<kGovernmentPublication>},
    {CFP006ContinuingConference, &kList<kConferencePublication>},
    {CFP006ContinuingOriginalAlphabet, &kList<kOriginalAlphabet>},
    {CFP006ContinuingSuccessiveLatestEntry, &kList<kSuccessiveLatestEntry>},
    {CFP006VisualAudience, &kList<kTargetAudience>},
    {CFP006VisualGovernment, &kList<kGovernmentPublication>},
    {CFP006VisualFormOfItem, &kList<kFormOfItemNonprojectedSound>},
    {CFP006VisualTypeOfMaterialNonprojected, &kList<kTypeOfMaterialNonprojected>},
    {CFP006VisualTypeOfMaterial3DObject, &kList<kTypeOfMaterial3DObject>},
    {CFP006VisualTechnique, &kList<kTechnique>},
    {CFP007ElectronicSMD, &kList<kElectronicSMD>},
    {CFP007ElectronicColor, &kList<kElectronicColor>},
    {CFP007ElectronicDimensionsOther, &kList<kElectronicDimensionsOther>},
    {CFP007ElectronicDimensionsDisk, &kList<kElectronicDimensionsDisk>},
    {CFP007ElectronicSound, &kList<kElectronicSound>},
    {CFP007ElectronicFileFormats, &kList<kElectronicFileFormats>},
    {CFP007ElectronicQualityTargets, &kList<kElectronicQualityTargets>},
    {CFP007ElectronicSource, &kList<kElectronicSource>},
    {CFP007ElectronicCompression, &kList<kElectronicCompression>},
    {CFP007ElectronicReformattingQuality, &kList<kElectronicReformattingQuality>},
    {CFP007GlobeSMD, &kList<kGlobeSMD>},
    {CFP007GlobeColor, &kList<kCartographicColor>},
    {CFP007GlobeMedium, &kList<kGlobeMedium>},
    {CFP007GlobeTypeOfReproduction, &kList<kCartographicReproduction>},
    {CFP007MapSMD, &kList<kMapSMD>},
    {CFP007MapColor, &kList<kCartographicColor>},
    {CFP007MapMedium, &kList<kMapMedium>},
    {CFP007MapTypeOfReproduction, &kList<kCartographicReproduction>},
    {CFP007MapProductionDetails, &kList<kMapProductionDetails>},
    {CFP007MapPolarity, &kList<kMapPolarity>},
    {CFP007MotionPictureSMD, &kList<kMotionPictureSMD>},
    {CFP007MotionPictureColor, &kList<kMotionPictureColor>},
    {CFP007MotionPicturePresentationFormat, &kList<kMotionPicturePresentationFormat>},
    {CFP007MotionPictureSoundOnMedium, &kList<kMotionPictureSoundOnMedium>},
    {CFP007MotionPictureMediumOfSound, &kList<kMotionPictureMediumOfSound>},
    {CFP007MotionPictureDimensions, &kList<kMotionPictureDimensions>},
    {CFP007MotionPicturePlaybackChannels, &kList<kMotionPicturePlaybackChannels>},
    {CFP007MotionPictureProductionElements, &kList<kMotionPictureProductionElements>},
    {CFP007MotionPicturePolarity, &kList<kMotionPicturePolarity>},
    {CFP007MotionPictureGeneration, &kList<kMotionPictureGeneration>},
    {CFP007MotionPictureBase, &kList<kMotionPictureBase>},
    {CFP007MotionPictureRefinedColor, &kList<kMotionPictureRefinedColor>},
    {CFP007MotionPictureColorStock, &kList<kMotionPictureColorStock>},
    {CFP007MotionPictureDeterioration, &kList<kMotionPictureDeterioration>},
    {CFP007MotionPictureCompleteness, &kList<kMotionPictureCompleteness>},
    {CFP007MicroformPolarity, &kList<kMicroformPolarity>},
    {CFP007MicroformDimensions, &kList<kMicroformDimensions>},
    {CFP007MicroformReductionRange, &kList<kMicroformReductionRange>},
    {CFP007MicroformColor, &kList<kMicroformColor>},
    {CFP007MicroformEmulsion, &kList<kMicroformEmulsion>},
    {CFP007MicroformGeneration, &kList<kMicroformGeneration>},
    {CFP007MicroformBase, &kList<kMicroformBase>},
    {CFP007NonprojectedSMD, &kList<kNonprojectedSMD>},
    {CFP007NonprojectedColor, &kList<kNonprojectedColor>},
    {CFP007NonprojectedPrimarySupport, &kList<kNonprojectedPrimarySupport>},
    {CFP007NonprojectedSecondarySupport, &kList<kNonprojectedSecondarySupport>},
    {CFP007ProjectedSMD, &kList<kProjectedSMD>},
    {CFP007ProjectedColor, &kList<kProjectedColor>},
    {CFP007ProjectedBaseEmulsion, &kList<kProjectedBaseEmulsion>},
    {CFP007ProjectedSoundOnMedium, &kList<kProjectedSoundOnMedium>},
    {CFP007ProjectedMediumOfSound, &kList<kProjectedMediumOfSound>},
    {CFP007ProjectedDimensions, &kList<kProjectedDimensions>},
    {CFP007ProjectedSecondarySupport, &kList<kProjectedSecondarySupport>},
    {CFP007SoundSMD, &kList<kSoundSMD>},
    {CFP007SoundSpeedOther, &kList<kSoundSpeedOther>},
    {CFP007SoundSpeedRecord, &kList<kSoundSpeedRecord>},
    {CFP007SoundPlaybackChannels, &kList<kSoundPlaybackChannels>},
    {CFP007SoundGrooveWidth, &kList<kSoundGrooveWidth>},
    {CFP007SoundDimensionsOther, &kList<kSoundDimensionsOther>},
    {CFP007SoundDimensionsRecord, &kList<kSoundDimensionsRecord>},
    {CFP007SoundTapeWidth, &kList<kSoundTapeWidth>},
    {CFP007SoundTapeConfiguration, &kList<kSoundTapeConfiguration>},
    {CFP007SoundKindOfDisc, &kList<kSoundKindOfDisc>},
    {CFP007SoundKindOfTape, &kList<kSoundKindOfTape>},
    {CFP007SoundKindOfMaterial, &kList<kSoundKindOfMaterial>},
    {CFP007SoundKindOfCutting, &kList<kSoundKindOfCutting>},
    {CFP007SoundPlaybackCharacteristics, &kList<kSoundPlaybackCharacteristics>},
    {CFP007SoundCaptureTechnique, &kList<kSoundCaptureTechnique>},
    {CFP007UnspecifiedSMD, &kList<kUnspecifiedSMD>},
    {CFP007TextSMD, &kList<kTextSMD>},
    {CFP007VideoSMD, &kList<kVideoSMD>},
    {CFP007VideoColor, &kList<kVideoColor>},
    {CFP007VideoFormatOther, &kList<kVideoFormatOther>},
    {CFP007VideoFormatTape, &kList<kVideoFormatTape>},
    {CFP007VideoFormatDisc, &kList<kVideoFormatDisc>},
    {CFP007VideoSoundOnMedium, &kList<kVideoSoundOnMedium>},
    {CFP007VideoMediumOfSound, &kList<kVideoMediumOfSound>},
    {CFP007VideoDimensions, &kList<kVideoDimensions>},
    {CFP007VideoPlaybackChannels, &kList<kVideoPlaybackChannels>},
    {CFP007RemoteSensingAltitude, &kList<kSensorAltitude>},
    {CFP007RemoteSensingAttitude, &kList<kSensorAttitude>},
    {CFP007RemoteSensingCloudCover, &kList<kCloudCover>},
    {CFP007RemoteSensingPlatformConstruction, &kList<kPlatformConstruction>},
    {CFP007RemoteSensingPlatformUse, &kList<kPlatformUse>},
    {CFP007RemoteSensingSensorType, &kList<kSensorType>},
    {CFP007RemoteSensingDataType, &kList<kDataType>},
    {CFP007NotatedMusicSMD, &kList<kNotatedMusicSMD>},
    {CFP007TactileSMD, &kList<kTactileSMD>},
    {CFP007TactileBrailleClass, &kList<kTactileBrailleClass>},
    {CFP007TactileContraction, &kList<kTactileContraction>},
    {CFP007TactileBrailleMusicFormat, &kList<kTactileBrailleMusicFormat>},
    {CFP007TactilePhysicalCharacteristics, &kList<kTactilePhysicalCharacteristics>},
    {CFPCombinedFormOfItem, &kList<kCombinedFormOfItem>},
};

constexpr auto kHighestPart = static_cast<std::size_t>(std::rbegin(kPartRows)->part);

constexpr auto kMenuOfPart = [] {
    std::array<CodeMenu, kHighestPart + 1> menus{};
    for (const PartRow& row : kPartRows) menus.at(static_cast<std::size_t>(row.part)) = row.menu;
    return menus;
}();

}  // namespace

CodeMenu FindCodeMenu(CFPart part) {
    const auto number =
        static_cast<std::size_t>(part);  // a negative part becomes a number far above the highest
    return number <= kHighestPart ? kMenuOfPart[number] : nullptr;
}

}  // namespace zorby

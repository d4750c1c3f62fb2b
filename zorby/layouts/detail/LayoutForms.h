#pragma once

#include <zorby/elements/MaterialType.h>
#include <zorby/layouts/detail/LayoutBuilder.h>
#include <zorby/layouts/detail/LayoutParts.h>

// The forms of each material.
namespace zorby {

struct LayoutForms {
    MaterialType material;
    const CCFDialogLayout* full;
    const CCFDialogLayout* additional;
};

inline constexpr const CCFDialogLayout* kNoForm = &kEndOfLayout;

template <const auto& Own, CFPart Level = CFPLdrBibliographicLevel>
constexpr const CCFDialogLayout* Full() {
    return kFullForm<Own, Level>.data();
}

template <const auto& Own, const auto& Columns = kHalves>
constexpr const CCFDialogLayout* Additional() {
    return kAdditionalForm<Own, Columns>.data();
}

// clang-format off
inline constexpr LayoutForms kForms[] = {
    {MTBook, Full<kBookParts, CFPLdrBibliographicLevelBook>(), Additional<kBookParts, kThirds>()},
    {MTComputerFile, Full<kComputerFileParts>(), Additional<kComputerFileParts>()},
    {MTComputerFileDisk, Full<kComputerFileDiskParts>(), Additional<kComputerFileDiskParts>()},
    {MTComputerFileOther, Full<kComputerFileOtherParts>(), Additional<kComputerFileOtherParts>()},
    {MTGlobe, Full<kGlobeParts>(), Additional<kGlobeParts>()},
    {MTAtlas, Full<kAtlasParts>(), Additional<kAtlasParts>()},
    {MTMap, Full<kMapParts>(), Additional<kMapParts>()},
    {MTKit, Full<kKitParts>(), Additional<kKitParts>()},
    {MTMixed, Full<kMixedParts>(), Additional<kMixedParts>()},
    {MTMusic, Full<kMusicParts>(), Additional<kMusicParts>()},
    {MTSerial, Full<kSerialParts, CFPLdrBibliographicLevelSerial>(), Additional<kSerialParts>()},
    {MTSoundDisc, Full<kSoundDiscParts>(), Additional<kSoundDiscParts>()},
    {MTSoundTape, Full<kSoundTapeParts>(), Additional<kSoundTapeParts>()},
    {MTSoundRecord, Full<kSoundRecordParts>(), Additional<kSoundRecordParts>()},
    {MTSoundOther, Full<kSoundOtherFullParts>(), Additional<kSoundOtherParts>()},
    {MTMotionPicture, Full<kMotionPictureParts>(), Additional<kMotionPictureParts>()},
    {MTVideoTape, Full<kVideoTapeParts>(), Additional<kVideoTapeParts>()},
    {MTVideoDisc, Full<kVideoDiscParts>(), Additional<kVideoDiscParts>()},
    {MTVideoOther, Full<kVideoOtherParts>(), Additional<kVideoOtherParts>()},
    {MTProjectedGraphic, Full<kProjectedParts>(), Additional<kProjectedParts>()},
    {MTNonprojectedGraphic, Full<kNonprojectedParts>(), Additional<kNonprojectedParts>()},
    {MTThreeDObject, Full<kThreeDObjectParts>(), Additional<kThreeDObjectParts>()},
    {MTText, kNoForm, Additional<kTextParts>()},
    {MTUnspecified, kNoForm, Additional<kUnspecifiedParts>()},
    {MTRemoteSensing, Full<kRemoteSensingParts>(), Additional<kRemoteSensingParts>()},
    {MTTactile, Additional<kTactileParts>(), Additional<kTactileParts>()},
    {MTNotatedMusic, Additional<kNotatedMusicParts>(), Additional<kNotatedMusicParts>()},
    // As an additional material, it has the 006 of a computer file.
    {MTBookComputerFile, Full<kBookComputerFileParts>(), Additional<kComputerFileParts>()},
    {MTVideoPlain, Full<kVideoPlainParts>(), kNoForm},
    {MTSoundNonmusical, Full<kSoundDiscParts>(), kNoForm},
};
// clang-format on

}  // namespace zorby

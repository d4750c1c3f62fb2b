#pragma once

#include <cstdint>

namespace zorby {

// The kind of item that a record or a workform describes.
enum MaterialType : std::int32_t {
    MTBook = 1,
    MTComputerFile = 2,
    MTComputerFileDisk = 3,
    MTComputerFileOther = 4,
    MTGlobe = 5,
    MTAtlas = 6,
    MTMap = 7,
    MTKit = 8,
    MTMixed = 9,   // archival and other mixed materials
    MTMusic = 10,  // notated music as the main material
    MTSerial = 11,
    MTSoundDisc = 12,
    MTSoundTape = 13,
    MTSoundRecord = 14,
    MTSoundOther = 15,
    MTMotionPicture = 16,
    MTVideoTape = 17,
    MTVideoDisc = 18,
    MTVideoOther = 19,
    MTProjectedGraphic = 20,
    MTNonprojectedGraphic = 21,
    MTThreeDObject = 22,
    MTText = 23,         // additional material only
    MTUnspecified = 24,  // additional material only
    MTRemoteSensing = 25,
    MTTactile = 26,           // additional material only
    MTNotatedMusic = 27,      // additional material only
    MTBookComputerFile = 28,  // a book that comes as a computer file
    MTVideoPlain = 29,        // color and playback channels alone
    MTSoundNonmusical = 30,   // leader type i
};

constexpr MaterialType kFirstMaterialType = MTBook;
constexpr MaterialType kLastMaterialType = MTSoundNonmusical;

}  // namespace zorby

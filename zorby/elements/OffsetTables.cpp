#include <zorby/elements/OffsetTables.h>
#include <zorby/elements/detail/OffsetRows.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace zorby {
namespace {

// The format of a hundred of element numbers, counted from 0. Its elements have the numbers from
// the hundred plus 1 to `last`.
struct Format {
    CFType type;
    CFPart last;
    const tagCFOFFSETENTRY* offsets;
};

constexpr CFType kNoType = static_cast<CFType>(0);
constexpr CFPart kNoPart = static_cast<CFPart>(0);
constexpr std::size_t kPartsAFormat = 100;

constexpr Format kFormats[] = {
    {CFLdr, CFPLdrUndefinedEntryMap, kLeader},
    {CF008Standard, CFP008CatalogingSource, kField008Standard},
    {CF008Alternative, CFP008Alternative8, kField008Alternative},
    {CF006Books, CFP006BooksBiography, kField006Books},
    {CF006ComputerFile, CFP006ComputerFileFormOfItem, kField006ComputerFile},
    {CF006Map, CFP006MapSpecialFormat, kField006Map},
    {CF006MusicSound, CFP006MusicSoundTransposition, kField006MusicSound},
    {CF006Continuing, CFP006ContinuingSuccessiveLatestEntry, kField006Continuing},
    {CF006Visual, CFP006VisualTechnique, kField006Visual},
    {CF006Mixed, CFP006MixedFormOfItem, kField006Mixed},
    {CF007Electronic, CFP007ElectronicReformattingQuality, kField007Electronic},
    {CF007Globe, CFP007GlobeTypeOfReproduction, kField007Globe},
    {CF007Map, CFP007MapPolarity, kField007Map},
    {CF007MotionPicture, CFP007MotionPictureInspectionDate, kField007MotionPicture},
    {CF007Microform, CFP007MicroformBase, kField007Microform},
    {CF007Nonprojected, CFP007NonprojectedSecondarySupport, kField007Nonprojected},
    {CF007Projected, CFP007ProjectedSecondarySupport, kField007Projected},
    {CF007Sound, CFP007SoundCaptureTechnique, kField007Sound},
    {CF007Unspecified, CFP007UnspecifiedSMD, kField007Unspecified},
    {CF007Text, CFP007TextSMD, kField007Text},
    {CF007Video, CFP007VideoPlaybackChannels, kField007Video},
    {CF007TenByte, CFP007TenByte10, kField007TenByte},
    {CF007RemoteSensing, CFP007RemoteSensingDataType, kField007RemoteSensing},
    {CF007NotatedMusic, CFP007NotatedMusicSMD, kField007NotatedMusic},
    {CF007Tactile, CFP007TactilePhysicalCharacteristics, kField007Tactile},
    {CF007Kit, CFP007KitSMD, kField007Kit},
    {kNoType, kNoPart, nullptr},  // the combined form of item
    {CFBlock, CFPBlock4, kBlock},
};

constexpr std::array kByteZeroOf006 = {
    CFP006BooksTypeOfRecord,    CFP006ComputerFileFormOfMaterial,  CFP006MapTypeOfRecord,
    CFP006MixedFormOfMaterial,  CFP006MusicSoundTypeOfRecordMusic, CFP006ContinuingFormOfMaterial,
    CFP006VisualFormOfMaterial,
};

bool IsByteZeroOf006(CFPart part) {
    return std::find(kByteZeroOf006.begin(), kByteZeroOf006.end(), part) != kByteZeroOf006.end();
}

const Format* FormatOfPart(CFPart part) {
    if (part <= 0) return nullptr;
    const std::size_t hundred = static_cast<std::size_t>(part) / kPartsAFormat;
    if (hundred >= std::size(kFormats)) return nullptr;
    const Format& format = kFormats[hundred];
    const bool isInRange =
        static_cast<std::size_t>(part) % kPartsAFormat != 0 && part <= format.last;
    return isInRange ? &format : nullptr;
}

const tagCFOFFSETENTRY* OffsetsOf(CFType type, const tagCFOFFSETENTRY* otherwise) {
    const auto* format = std::find_if(std::begin(kFormats), std::end(kFormats),
                                      [type](const Format& f) { return f.type == type; });
    return format == std::end(kFormats) ? otherwise : format->offsets;
}

bool Is006(CFType type) {
    return CF006None <= type && type < CF007None;
}

}  // namespace

const tagCFOFFSETENTRY* const kLeaderOffsets = kLeader;

const tagCFOFFSETENTRY* OffsetsFor006Type(CFType type006) {
    if (type006 == CF006None) return nullptr;
    return Is006(type006) ? OffsetsOf(type006, kField006Books) : kField006Books;
}

const tagCFOFFSETENTRY* OffsetsFor007Type(CFType type007) {
    if (type007 == CF007None) return nullptr;
    return type007 > CF007None ? OffsetsOf(type007, kField007Unspecified) : kField007Unspecified;
}

const tagCFOFFSETENTRY* OffsetsFor008(CFType type006) {
    return type006 == CF006AltDate ? kField008Alternative : kField008Standard;
}

const tagCFOFFSETENTRY* FindOffset(const tagCFOFFSETENTRY* table, CFPart part) {
    if (table == nullptr || part < 0) return nullptr;
    for (; table->part != CFPEndOfTable; ++table) {
        if (table->part == part) return table;
    }
    return nullptr;
}

CFType TypeOfPart(CFPart part) {
    const Format* format = FormatOfPart(part);
    return format == nullptr ? kNoType : format->type;
}

int WidthOfPart(CFPart part) {
    const Format* format = FormatOfPart(part);
    const tagCFOFFSETENTRY* offset =
        format == nullptr ? nullptr : FindOffset(format->offsets, part);
    return offset == nullptr ? 0 : offset->Width();
}

bool PartBelongsTo(CFPart part, CFType type, ByteZero byteZero) {
    const Format* format = FormatOfPart(part);
    if (format == nullptr || format->type != type) return false;
    return byteZero == ByteZero::Included || !IsByteZeroOf006(part);
}

}  // namespace zorby

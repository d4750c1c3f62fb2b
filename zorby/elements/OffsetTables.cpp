#include <zorby/elements/OffsetTables.h>
#include <zorby/elements/detail/OffsetRows.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace zorby {
namespace {

// One format a hundred of element numbers, from 0: its elements are numbered from hundred + 1 to
// `last`.
struct Format {
    CFType type;
    CFPart last;
    const tagCFOFFSETENTRY* offsets;
};

constexpr CFType kNoType = static_cast<CFType>(0);
constexpr CFPart kNoPart = static_cast<CFPart>(0);
constexpr std::size_t kPartsAFormat = 100;

constexpr Format kFormats[] = {
    {CFLdr, CFPLdrUndefinedEntryMap, detail::kLeader},
    {CF008Standard, CFP008CatalogingSource, detail::kField008Standard},
    {CF008Alternative, CFP008Alternative8, detail::kField008Alternative},
    {CF006Books, CFP006BooksBiography, detail::kField006Books},
    {CF006ComputerFile, CFP006ComputerFileFormOfItem, detail::kField006ComputerFile},
    {CF006Map, CFP006MapSpecialFormat, detail::kField006Map},
    {CF006MusicSound, CFP006MusicSoundTransposition, detail::kField006MusicSound},
    {CF006Continuing, CFP006ContinuingSuccessiveLatestEntry, detail::kField006Continuing},
    {CF006Visual, CFP006VisualTechnique, detail::kField006Visual},
    {CF006Mixed, CFP006MixedFormOfItem, detail::kField006Mixed},
    {CF007Electronic, CFP007ElectronicReformattingQuality, detail::kField007Electronic},
    {CF007Globe, CFP007GlobeTypeOfReproduction, detail::kField007Globe},
    {CF007Map, CFP007MapPolarity, detail::kField007Map},
    {CF007MotionPicture, CFP007MotionPictureInspectionDate, detail::kField007MotionPicture},
    {CF007Microform, CFP007MicroformBase, detail::kField007Microform},
    {CF007Nonprojected, CFP007NonprojectedSecondarySupport, detail::kField007Nonprojected},
    {CF007Projected, CFP007ProjectedSecondarySupport, detail::kField007Projected},
    {CF007Sound, CFP007SoundCaptureTechnique, detail::kField007Sound},
    {CF007Unspecified, CFP007UnspecifiedSMD, detail::kField007Unspecified},
    {CF007Text, CFP007TextSMD, detail::kField007Text},
    {CF007Video, CFP007VideoPlaybackChannels, detail::kField007Video},
    {CF007TenByte, CFP007TenByte10, detail::kField007TenByte},
    {CF007RemoteSensing, CFP007RemoteSensingDataType, detail::kField007RemoteSensing},
    {CF007NotatedMusic, CFP007NotatedMusicSMD, detail::kField007NotatedMusic},
    {CF007Tactile, CFP007TactilePhysicalCharacteristics, detail::kField007Tactile},
    {CF007Kit, CFP007KitSMD, detail::kField007Kit},
    {kNoType, kNoPart, nullptr},  // the combined form of item
    {CFBlock, CFPBlock4, detail::kBlock},
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

const tagCFOFFSETENTRY* const kLeaderOffsets = detail::kLeader;

const tagCFOFFSETENTRY* OffsetsFor006Type(CFType type006) {
    if (type006 == CF006None) return nullptr;
    return Is006(type006) ? OffsetsOf(type006, detail::kField006Books) : detail::kField006Books;
}

const tagCFOFFSETENTRY* OffsetsFor007Type(CFType type007) {
    if (type007 == CF007None) return nullptr;
    return type007 > CF007None ? OffsetsOf(type007, detail::kField007Unspecified)
                               : detail::kField007Unspecified;
}

const tagCFOFFSETENTRY* OffsetsFor008(CFType type006) {
    return type006 == CF006AltDate ? detail::kField008Alternative : detail::kField008Standard;
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

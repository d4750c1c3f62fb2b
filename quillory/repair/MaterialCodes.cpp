#include <quillory/coded/Elements.h>
#include <quillory/coded/Material.h>
#include <quillory/repair/MaterialCodes.h>

namespace quillory {
namespace {

using namespace zorby;

constexpr std::size_t kTypeOfRecord = 6;
constexpr std::size_t kSectionSize = 18;

// Positions in 006 and 007.
constexpr std::size_t kFormOfItem = 6;
constexpr std::size_t kTypeOfMap = 8;
constexpr std::size_t kTypeOfFile = 9;
constexpr std::size_t kTypeOfVisual = 16;
constexpr std::size_t kDesignation = 1;
constexpr std::size_t kSpeed = 3;

char ByteOf(std::string_view field, std::size_t position) {
    return position < field.size() ? field[position] : '\0';
}

MaterialType BookMaterial(CFType category) {
    return category == CF007Electronic ? MTBookComputerFile : MTBook;
}

MaterialType ComputerFileMaterial(std::string_view section, std::string_view field007) {
    switch (ByteOf(field007, kDesignation)) {
        case 'j':
            return MTComputerFileDisk;
        case 'o':
            return MTComputerFile;
        case '\0':
            break;
        default:
            return MTComputerFileOther;
    }
    const char typeOfFile = ByteOf(section, kTypeOfFile);
    if (typeOfFile == 'i') return MTComputerFile;
    return typeOfFile == 'b' ? MTComputerFileDisk : MTComputerFileOther;
}

MaterialType MapMaterial(std::string_view section, std::string_view field007) {
    switch (CategoryOf007(field007)) {
        case CF007Map:
            return ByteOf(field007, kDesignation) == 'd' ? MTAtlas : MTMap;
        case CF007Globe:
            return MTGlobe;
        case CF007RemoteSensing:
            return MTRemoteSensing;
        default:
            break;
    }
    const char typeOfMap = ByteOf(section, kTypeOfMap);
    if (typeOfMap == 'e') return MTAtlas;
    return typeOfMap == 'd' ? MTGlobe : MTMap;
}

MaterialType SoundMaterial(std::string_view field007) {
    constexpr std::string_view kSpeedsOfRecords = "abcde";
    switch (ByteOf(field007, kDesignation)) {
        case 'g':
        case 's':
        case 't':
            return MTSoundTape;
        case 'd':
        case '\0': {
            const bool isRecord =
                kSpeedsOfRecords.find(ByteOf(field007, kSpeed)) != kSpeedsOfRecords.npos;
            return isRecord ? MTSoundRecord : MTSoundDisc;
        }
        default:
            return MTSoundOther;
    }
}

MaterialType VideoMaterial(std::string_view field007) {
    switch (ByteOf(field007, kDesignation)) {
        case 'd':
            return MTVideoDisc;
        case 'f':
            return MTVideoTape;
        default:
            return MTVideoOther;
    }
}

MaterialType ProjectedMaterial(std::string_view section, std::string_view field007) {
    switch (CategoryOf007(field007)) {
        case CF007MotionPicture:
            return MTMotionPicture;
        case CF007Video:
            return VideoMaterial(field007);
        case CF007Projected:
            return MTProjectedGraphic;
        default:
            break;
    }
    const char typeOfVisual = ByteOf(section, kTypeOfVisual);
    if (typeOfVisual == 'm') return MTMotionPicture;
    return typeOfVisual == 'v' ? MTVideoOther : MTProjectedGraphic;
}

MaterialType VisualMaterial(char typeOfRecord, std::string_view section,
                            std::string_view field007) {
    switch (typeOfRecord) {
        case 'k':
            return MTNonprojectedGraphic;
        case 'o':
            return MTKit;
        case 'r':
            return MTThreeDObject;
        default:
            return ProjectedMaterial(section, field007);
    }
}

MaterialType MusicSoundMaterial(char typeOfRecord, std::string_view field007) {
    if (typeOfRecord == 'i') return MTSoundNonmusical;
    return typeOfRecord == 'j' ? SoundMaterial(field007) : MTMusic;
}

}  // namespace

MaterialCodes MaterialCodes::OfRecord(std::string_view leader, std::string_view field008) {
    const bool hasSection = field008.size() > kMaterialOffset008;
    return {MaterialOfLeader(leader), ByteOf(leader, kTypeOfRecord),
            hasSection ? field008.substr(kMaterialOffset008, kSectionSize) : ""};
}

MaterialCodes MaterialCodes::Of006(CFType form, std::string_view field006) {
    return {form, ByteOf(field006, 0), field006};
}

MaterialType MaterialOf(const MaterialCodes& codes, std::string_view field007) {
    switch (codes.form) {
        case CF006ComputerFile:
            return ComputerFileMaterial(codes.section, field007);
        case CF006Map:
            return MapMaterial(codes.section, field007);
        case CF006Mixed:
            return MTMixed;
        case CF006MusicSound:
            return MusicSoundMaterial(codes.typeOfRecord, field007);
        case CF006Continuing:
            return MTSerial;
        case CF006Visual:
            return VisualMaterial(codes.typeOfRecord, codes.section, field007);
        default:
            return BookMaterial(CategoryOf007(field007));
    }
}

MaterialType MaterialOf007(std::string_view field007) {
    switch (CategoryOf007(field007)) {
        case CF007Map:
        case CF007Globe:
        case CF007RemoteSensing:
            return MapMaterial("", field007);
        case CF007Electronic:
            return ComputerFileMaterial("", field007);
        case CF007Tactile:
            return MTTactile;
        case CF007Projected:
        case CF007MotionPicture:
        case CF007Video:
            return ProjectedMaterial("", field007);
        case CF007Nonprojected:
            return MTNonprojectedGraphic;
        case CF007Kit:
            return MTKit;
        case CF007NotatedMusic:
            return MTNotatedMusic;
        case CF007Sound:
            return SoundMaterial(field007);
        case CF007Text:
            return MTText;
        case CF007Unspecified:
            return MTUnspecified;
        default:
            return MTBook;
    }
}

bool Belongs007To(const MaterialCodes& codes, CFType category) {
    constexpr std::string_view kElectronicForms = "oqs";
    switch (codes.form) {
        case CF006ComputerFile:
            return category == CF007Electronic;
        case CF006Map:
            return category == CF007Map || category == CF007Globe || category == CF007RemoteSensing;
        case CF006MusicSound:
            return category == CF007Sound &&
                   (codes.typeOfRecord == 'i' || codes.typeOfRecord == 'j');
        case CF006Visual:
            if (codes.typeOfRecord == 'k') return category == CF007Nonprojected;
            return codes.typeOfRecord == 'g' &&
                   (category == CF007Projected || category == CF007Video ||
                    category == CF007MotionPicture);
        case CF006Books:
            return category == CF007Electronic &&
                   kElectronicForms.find(ByteOf(codes.section, kFormOfItem)) !=
                       kElectronicForms.npos;
        default:
            return false;
    }
}

}  // namespace quillory

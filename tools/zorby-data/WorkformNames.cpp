#include <algorithm>
#include <span>

#include <tools/zorby-data/WorkformNames.h>

namespace datatool {
namespace {

using namespace zorby;

template <class Value>
struct Name {
    std::string_view name;
    Value value;
};

constexpr Name<MaterialType> kMaterials[] = {
    {"Book", MTBook},
    {"ComputerFile", MTComputerFile},
    {"ComputerFileDisk", MTComputerFileDisk},
    {"ComputerFileOther", MTComputerFileOther},
    {"Globe", MTGlobe},
    {"Atlas", MTAtlas},
    {"Map", MTMap},
    {"Kit", MTKit},
    {"Mixed", MTMixed},
    {"Music", MTMusic},
    {"Serial", MTSerial},
    {"SoundDisc", MTSoundDisc},
    {"SoundTape", MTSoundTape},
    {"SoundRecord", MTSoundRecord},
    {"SoundOther", MTSoundOther},
    {"MotionPicture", MTMotionPicture},
    {"VideoTape", MTVideoTape},
    {"VideoDisc", MTVideoDisc},
    {"VideoOther", MTVideoOther},
    {"ProjectedGraphic", MTProjectedGraphic},
    {"NonprojectedGraphic", MTNonprojectedGraphic},
    {"ThreeDObject", MTThreeDObject},
    {"Text", MTText},
    {"Unspecified", MTUnspecified},
    {"RemoteSensing", MTRemoteSensing},
    {"Tactile", MTTactile},
    {"NotatedMusic", MTNotatedMusic},
    {"BookComputerFile", MTBookComputerFile},
    {"VideoPlain", MTVideoPlain},
    {"SoundNonmusical", MTSoundNonmusical},
};

constexpr Name<CFType> kForms006[] = {
    {"None", CF006None},
    {"Unknown", CF006Unknown},
    {"Books", CF006Books},
    {"ComputerFile", CF006ComputerFile},
    {"Map", CF006Map},
    {"Mixed", CF006Mixed},
    {"MusicSound", CF006MusicSound},
    {"Continuing", CF006Continuing},
    {"Visual", CF006Visual},
    {"AltDate", CF006AltDate},
};

constexpr Name<CFType> kForms007[] = {
    {"None", CF007None},
    {"Unknown", CF007Unknown},
    {"Map", CF007Map},
    {"Electronic", CF007Electronic},
    {"Globe", CF007Globe},
    {"Projected", CF007Projected},
    {"Microform", CF007Microform},
    {"Nonprojected", CF007Nonprojected},
    {"MotionPicture", CF007MotionPicture},
    {"Sound", CF007Sound},
    {"Text", CF007Text},
    {"Video", CF007Video},
    {"Unspecified", CF007Unspecified},
    {"TenByte", CF007TenByte},
    {"RemoteSensing", CF007RemoteSensing},
    {"Tactile", CF007Tactile},
    {"NotatedMusic", CF007NotatedMusic},
    {"Kit", CF007Kit},
};

template <class Value>
std::optional<Value> ValueOf(std::span<const Name<Value>> names, std::string_view name) {
    const auto found = std::ranges::find(names, name, &Name<Value>::name);
    return found == names.end() ? std::nullopt : std::optional(found->value);
}

template <class Value>
std::string_view NameIn(std::span<const Name<Value>> names, Value value) {
    const auto found = std::ranges::find(names, value, &Name<Value>::value);
    return found == names.end() ? std::string_view() : found->name;
}

}  // namespace

std::optional<MaterialType> MaterialOf(std::string_view name) {
    return ValueOf<MaterialType>(kMaterials, name);
}

std::optional<CFType> Form006Of(std::string_view name) {
    return ValueOf<CFType>(kForms006, name);
}

std::optional<CFType> Form007Of(std::string_view name) {
    return ValueOf<CFType>(kForms007, name);
}

std::string_view NameOf(MaterialType material) {
    return NameIn<MaterialType>(kMaterials, material);
}

std::string_view NameOf(CFType form) {
    const std::string_view name = NameIn<CFType>(kForms006, form);
    return name.empty() ? NameIn<CFType>(kForms007, form) : name;
}

}  // namespace datatool

#include <zorby/controlfields/MainMaterial.h>
#include <zorby/controlfields/detail/RepairChecker.h>
#include <zorby/controlfields/detail/StandardWorkforms.h>

namespace zorby {
namespace {

constexpr std::size_t kFormOfItem008 = 23;

}  // namespace

void CCFMainMaterial::SetInvalidValuesToDefault(ReplacedPartCallback callback, void* context,
                                                MaterialType material) {
    const CFType type006 = type006_;
    const CFType type007 = type007_;
    RepairTask task{{},      nullptr,      {},   callback,        type006,
                    context, kAnyMaterial, true, FirstRow::Tested};
    task.defaultText = [=] { return DefaultLdrFor(type006, type007); };
    task.table = leaderTable_;
    task.buffer = {leader_.data(), kLeaderSize};
    CheckPartsAgainstDefaults(task);

    task.defaultText = [=] { return Default008For(type006, type007); };
    task.table = table008_;
    task.buffer = {field008_.data(), k008Size};
    CheckPartsAgainstDefaults(task);

    task.material = material;
    Repair007(task);

    const bool isByMaterial = type006 == CF006ComputerFile && type007 == CF007Electronic;
    task.defaultText = [=] {
        return isByMaterial ? Default006For(material) : Default006For(type006, type007);
    };
    task.table = table006_;
    task.buffer = {image006_.data(), k006Size};
    task.firstRow = FirstRow::Skipped;
    CheckPartsAgainstDefaults(task);
}

// Does nothing if the record or its material has no 007.
void CCFMainMaterial::Repair007(RepairTask task) {
    if (table007_ == nullptr) return;
    std::string defaultText = Default007For(task.material, field008_[kFormOfItem008]);
    if (defaultText.empty()) return;
    task.defaultText = [&defaultText] { return defaultText; };
    task.table = table007_;
    task.buffer = {field007_.data(), k007Size};
    task.isMicroform = IsMicroform(type006_, table006_, {image006_.data(), k006Size});
    CheckPartsAgainstDefaults(task);
}

void CCFMainMaterial::NonMusicalSoundRecordingFixup() {
    std::string type;
    std::string literaryText;
    Get(CFPLdrTypeOfRecordMusic, type);
    if (type != "i") {
        Set(CFP006MusicSoundLiteraryText, "  ");
        return;
    }
    Get(CFP006MusicSoundLiteraryText, literaryText);
    if (literaryText == "  ") Set(CFP006MusicSoundLiteraryText, "z ");
}

}  // namespace zorby
